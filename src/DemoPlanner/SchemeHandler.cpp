#include "DemoPlanner/SchemeHandler.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <glib/gstdio.h>
#include <memory>
#include <string_view>
#include <vector>

#include "DemoPlanner/PlannerUrl.h"

namespace kelmar::demo {

namespace {

using system::Done;
using system::Failure;
using system::Result;

constexpr const char* desktopId = "kelmar-planner-demo.desktop";
/// By this key a desktop file of ours is told from another of the same name.
constexpr const char* ownKey = "X-KelmarPlanner-StandIn";

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
using OwnedInfo = std::unique_ptr<GAppInfo, Unref>;

struct FreeKeyFile {
    void operator()(GKeyFile* file) const { g_key_file_unref(file); }
};
using OwnedKeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

Failure failureOf(const std::string& what, GError* error) {
    Failure failure{what + ": " + (error != nullptr ? error->message : "no reason given")};
    g_clear_error(&error);
    return failure;
}

std::string folder() {
    return std::string(g_get_user_data_dir()) + "/applications";
}

std::string desktopPath() {
    return folder() + "/" + desktopId;
}

enum class DesktopFile { none, ours, foreign };

DesktopFile existingFile() {
    if (g_file_test(desktopPath().c_str(), G_FILE_TEST_EXISTS) == FALSE) {
        return DesktopFile::none;
    }
    const OwnedKeyFile file(g_key_file_new());
    const bool ours =
        g_key_file_load_from_file(file.get(), desktopPath().c_str(), G_KEY_FILE_NONE, nullptr) !=
            FALSE &&
        g_key_file_get_boolean(file.get(), G_KEY_FILE_DESKTOP_GROUP, ownKey, nullptr) != FALSE;
    return ours ? DesktopFile::ours : DesktopFile::foreign;
}

/// An argument of an Exec key: quoted, with what is special in quotes escaped, and once more
/// for the key file by GKeyFile itself.
std::string quoted(const std::string& path) {
    std::string text = "\"";
    for (const char character : path) {
        if (std::string_view("\"`$\\").find(character) != std::string_view::npos) {
            text += '\\';
        }
        text += character;
        if (character == '%') {
            text += '%';
        }
    }
    return text + "\"";
}

Result<Done> writeDesktopFile(const std::string& program) {
    const OwnedKeyFile file(g_key_file_new());
    const auto set = [&](const char* key, const std::string& value) {
        g_key_file_set_string(file.get(), G_KEY_FILE_DESKTOP_GROUP, key, value.c_str());
    };
    set("Type", "Application");
    set("Name", "Kelmar Planner (stand-in)");
    set("Comment", "Tries out the Kelmar Planner widgets without the planner");
    set("Exec", quoted(program) + " %u");
    set("Icon", "x-office-calendar");
    set("Categories", "Education;");
    set("MimeType", std::string(plannerSchemeType) + ";");
    set("StartupNotify", "true");
    set(ownKey, "true");
    GError* error = nullptr;
    if (g_mkdir_with_parents(folder().c_str(), 0700) != 0 ||
        g_key_file_save_to_file(file.get(), desktopPath().c_str(), &error) == FALSE) {
        return failureOf(desktopPath() + " cannot be written", error);
    }
    return Done{};
}

OwnedInfo defaultHandler() {
    return OwnedInfo(g_app_info_get_default_for_type(plannerSchemeType, FALSE));
}

bool isOurs(const OwnedInfo& handler) {
    const char* const id = handler ? g_app_info_get_id(handler.get()) : nullptr;
    return id != nullptr && std::string_view(id) == desktopId;
}

std::string describe(const OwnedInfo& handler) {
    const char* const id = g_app_info_get_id(handler.get());
    return std::string(g_app_info_get_display_name(handler.get())) +
           (id != nullptr ? " (" + std::string(id) + ")" : "");
}

/// Takes our name out of one group's list of the programs for the scheme; whether it stood there.
bool dropFrom(GKeyFile* file, const char* group) {
    gsize count = 0;
    gchar** const ids = g_key_file_get_string_list(file, group, plannerSchemeType, &count, nullptr);
    std::vector<const gchar*> kept;
    for (gsize index = 0; index < count; ++index) {
        if (std::string_view(ids[index]) != desktopId) {
            kept.push_back(ids[index]);
        }
    }
    const bool found = kept.size() != count;
    if (found && kept.empty()) {
        g_key_file_remove_key(file, group, plannerSchemeType, nullptr);
    } else if (found) {
        g_key_file_set_string_list(file, group, plannerSchemeType, kept.data(), kept.size());
    }
    g_strfreev(ids);
    return found;
}

/// GIO can forget all programs for a scheme or none, so the user's list (MIME Applications
/// Associations) is cleaned of our name here and keeps all others.
Result<Done> dropAssociations() {
    const std::string path = std::string(g_get_user_config_dir()) + "/mimeapps.list";
    const OwnedKeyFile file(g_key_file_new());
    constexpr auto everything =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    if (g_key_file_load_from_file(file.get(), path.c_str(), everything, nullptr) == FALSE) {
        return Done{};
    }
    bool found = false;
    for (const char* const group : {"Default Applications", "Added Associations"}) {
        found = dropFrom(file.get(), group) || found;
    }
    GError* error = nullptr;
    if (found && g_key_file_save_to_file(file.get(), path.c_str(), &error) == FALSE) {
        return failureOf(path + " cannot be written", error);
    }
    return Done{};
}

}  // namespace

Result<std::string> registerSchemeHandler(const std::string& program) {
    if (existingFile() == DesktopFile::foreign) {
        return Failure{desktopPath() + " was not written by kelmar-planner-demo; left alone"};
    }
    const OwnedInfo before = defaultHandler();
    if (const Result<Done> written = writeDesktopFile(program); !written) {
        return written.failure();
    }
    if (isOurs(before)) {
        return std::string(plannerScheme) + ": URLs are opened by " + program;
    }
    if (before) {
        return std::string(plannerScheme) + ": URLs are opened by " + describe(before) +
               ", and stay with it";
    }
    const OwnedInfo own(
        reinterpret_cast<GAppInfo*>(g_desktop_app_info_new_from_filename(desktopPath().c_str())));
    GError* error = nullptr;
    if (!own || g_app_info_set_as_default_for_type(own.get(), plannerSchemeType, &error) == FALSE) {
        return failureOf("The desktop did not take the handler", error);
    }
    return std::string(plannerScheme) + ": URLs are now opened by " + program;
}

Result<std::string> unregisterSchemeHandler() {
    switch (existingFile()) {
        case DesktopFile::none:
            return std::string("Nothing was registered");
        case DesktopFile::foreign:
            return Failure{desktopPath() + " was not written by kelmar-planner-demo; left alone"};
        case DesktopFile::ours:
            break;
    }
    if (const Result<Done> dropped = dropAssociations(); !dropped) {
        return dropped.failure();
    }
    if (g_remove(desktopPath().c_str()) != 0) {
        return Failure{desktopPath() + " cannot be removed"};
    }
    return std::string(plannerScheme) + ": URLs are no longer opened by kelmar-planner-demo";
}

}  // namespace kelmar::demo
