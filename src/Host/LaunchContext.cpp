#include "Host/LaunchContext.h"

namespace kelmar::host {
namespace {

constexpr const char* tokenKey = "activation-token";

/// GIO asks the context for the token of each application that says it understands them.
char* giveToken(GAppLaunchContext* context, GAppInfo* /*application*/, GList* /*files*/) {
    return g_strdup(static_cast<const char*>(g_object_get_data(G_OBJECT(context), tokenKey)));
}

void initializeClass(void* typeClass, void* /*data*/) {
    static_cast<GAppLaunchContextClass*>(typeClass)->get_startup_notify_id = giveToken;
}

GType contextType() {
    static const GType type = g_type_register_static_simple(
        G_TYPE_APP_LAUNCH_CONTEXT, "KelmarLaunchContext", sizeof(GAppLaunchContextClass),
        initializeClass, sizeof(GAppLaunchContext), nullptr, GTypeFlags{});
    return type;
}

}  // namespace

GlibOwned<GAppLaunchContext> makeLaunchContext(const std::string& activationToken,
                                               const ApplicationVariables& variables) {
    GlibOwned<GAppLaunchContext> context(
        G_APP_LAUNCH_CONTEXT(g_object_new(contextType(), nullptr)));
    g_app_launch_context_unsetenv(context.get(), "DESKTOP_STARTUP_ID");
    g_app_launch_context_unsetenv(context.get(), "XDG_ACTIVATION_TOKEN");
    for (const auto& [name, value] : variables) {
        if (value) {
            g_app_launch_context_setenv(context.get(), name.c_str(), value->c_str());
        } else {
            g_app_launch_context_unsetenv(context.get(), name.c_str());
        }
    }
    if (!activationToken.empty()) {
        g_object_set_data_full(G_OBJECT(context.get()), tokenKey, g_strdup(activationToken.c_str()),
                               g_free);
    }
    return context;
}

}  // namespace kelmar::host
