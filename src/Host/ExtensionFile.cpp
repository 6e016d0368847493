#include "Host/ExtensionFile.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fmt/format.h>
#include <optional>
#include <string_view>

#include "Host/Glib.h"
#include "System/Folder.h"

namespace kelmar::host {
namespace {

constexpr const char* group = "Extension";

bool isLetter(char character) {
    return g_ascii_isalpha(character) != 0;
}

/// RFC 3986, section 3.1.
bool isUrlScheme(std::string_view text) {
    constexpr std::string_view others = "+-.";
    return !text.empty() && isLetter(text.front()) &&
           std::all_of(text.begin(), text.end(), [&](char character) {
               return g_ascii_isalnum(character) != 0 ||
                      others.find(character) != std::string_view::npos;
           });
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), g_ascii_tolower);
    return text;
}

std::string pathFrom(const std::filesystem::path& folder, const std::string& path) {
    return (folder / path).lexically_normal();
}

/// The values of one key file; the first fault is kept.
class Reader {
public:
    explicit Reader(GKeyFile* file) : file_(file) {}

    std::string text(const char* key) {
        GlibErrorSlot error;
        const GlibOwned<char> value(g_key_file_get_string(file_, group, key, error.place()));
        if (error) {
            return note(error.message());
        }
        return value.get()[0] == '\0' ? note(fmt::format("{} is empty", key)) : value.get();
    }

    std::vector<std::string> texts(const char* key) {
        std::size_t count = 0;
        GlibErrorSlot error;
        const GlibOwned<char*> values(
            g_key_file_get_string_list(file_, group, key, &count, error.place()));
        if (error) {
            note(error.message());
            return {};
        }
        return {values.get(), values.get() + count};
    }

    [[nodiscard]] bool has(const char* key) const {
        return g_key_file_has_key(file_, group, key, nullptr) != 0;
    }

    std::string note(std::string fault) {
        if (!fault_) {
            fault_ = std::move(fault);
        }
        return {};
    }
    [[nodiscard]] const std::optional<std::string>& fault() const { return fault_; }

private:
    GKeyFile* file_;
    std::optional<std::string> fault_;
};

ExtensionFile readValues(Reader& reader, const std::filesystem::path& folder,
                         const std::string& homeFolder) {
    ExtensionFile extension{.executable = pathFrom(folder, reader.text("Exec")),
                            .urlScheme = lowerCase(reader.text("UrlScheme")),
                            .reloadOnChange = {}};
    if (!isUrlScheme(extension.urlScheme)) {
        reader.note(
            fmt::format("UrlScheme is \"{}\", which no URL can begin with", extension.urlScheme));
    }
    if (reader.has("ReloadOnChange")) {
        for (const auto& path : reader.texts("ReloadOnChange")) {
            if (path.empty()) {
                reader.note("ReloadOnChange has an empty path");
            }
            extension.reloadOnChange.push_back(pathFrom(homeFolder, path));
        }
    }
    return extension;
}

}  // namespace

system::Result<ExtensionFile> readExtensionFile(const std::string& path,
                                                const std::string& homeFolder) {
    // Not by GLib, which would wait for what a FIFO never gives.
    const auto text = system::readFile(path);
    if (!text) {
        return text.failure();
    }
    const GlibOwned<GKeyFile> file(g_key_file_new());
    GlibErrorSlot error;
    if (g_key_file_load_from_data(file.get(), text->data(), text->size(), G_KEY_FILE_NONE,
                                  error.place()) == 0) {
        return system::Failure{fmt::format("{}: {}", path, error.message())};
    }
    Reader reader(file.get());
    std::error_code ignored;
    const auto folder = std::filesystem::absolute(path, ignored).parent_path();
    auto extension = readValues(reader, folder, homeFolder);
    if (reader.fault()) {
        return system::Failure{fmt::format("{}: {}", path, *reader.fault())};
    }
    return extension;
}

}  // namespace kelmar::host
