#pragma once

#include <memory>
#include <string>

// GIO has a member of this name, which Qt makes a keyword.
#pragma push_macro("signals")
#undef signals
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#pragma pop_macro("signals")

namespace kelmar::host {

struct GlibRelease {
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
    void operator()(GError* error) const { g_error_free(error); }
    void operator()(char* text) const { g_free(text); }
    void operator()(char** texts) const { g_strfreev(texts); }
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
    void operator()(GMainLoop* loop) const { g_main_loop_unref(loop); }
    void operator()(GAppInfo* object) const { g_object_unref(object); }
    void operator()(GAppLaunchContext* object) const { g_object_unref(object); }
    void operator()(GDBusConnection* object) const { g_object_unref(object); }
    void operator()(GVariant* value) const { g_variant_unref(value); }
    void operator()(GCancellable* object) const { g_object_unref(object); }
};

/// Something of GLib's that is released with its owner.
template <class T>
using GlibOwned = std::unique_ptr<T, GlibRelease>;

/// Where a GLib function puts its error, which is released when the slot goes.
class GlibErrorSlot {
public:
    GlibErrorSlot() = default;
    ~GlibErrorSlot() { g_clear_error(&error_); }
    GlibErrorSlot(const GlibErrorSlot&) = delete;
    GlibErrorSlot& operator=(const GlibErrorSlot&) = delete;

    [[nodiscard]] GError** place() { return &error_; }
    [[nodiscard]] explicit operator bool() const { return error_ != nullptr; }
    [[nodiscard]] std::string message() const { return error_ != nullptr ? error_->message : ""; }

private:
    GError* error_ = nullptr;
};

}  // namespace kelmar::host
