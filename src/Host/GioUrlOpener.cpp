#include "Host/GioUrlOpener.h"

#include <fmt/format.h>
#include <list>
#include <thread>
#include <utility>

#include "Host/Glib.h"
#include "Host/LaunchContext.h"
#include "System/Url.h"

namespace kelmar::host {

/// A thread with a GLib main loop. Everything but the constructor, the destructor and `launch`
/// runs on it.
class GioUrlOpener::Worker {
public:
    using Ended = std::function<void(std::string error)>;

    explicit Worker(ApplicationVariables variables)
        : variables_(std::move(variables)),
          context_(g_main_context_new()),
          loop_(g_main_loop_new(context_.get(), FALSE)),
          cancellable_(g_cancellable_new()),
          thread_([this] { run(); }) {}

    ~Worker() {
        g_cancellable_cancel(cancellable_.get());
        post([this] { g_main_loop_quit(loop_.get()); });
        thread_.join();
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    void launch(const std::string& url, const std::string& token, Ended ended) {
        post([this, url, token, ended = std::move(ended)] { begin({this, url, token, ended}); });
    }

private:
    struct Launch {
        Worker* worker;
        std::string url;
        std::string token;
        Ended ended;
    };

    void run() {
        g_main_context_push_thread_default(context_.get());
        g_main_loop_run(loop_.get());
        g_main_context_pop_thread_default(context_.get());
    }

    void post(std::function<void()> work) {
        using Work = std::function<void()>;
        auto* const source = g_idle_source_new();
        g_source_set_priority(source, G_PRIORITY_DEFAULT);
        g_source_set_callback(
            source,
            [](void* data) -> gboolean {
                (*static_cast<Work*>(data))();
                return G_SOURCE_REMOVE;
            },
            new Work(std::move(work)), [](void* data) { delete static_cast<Work*>(data); });
        g_source_attach(source, context_.get());
        g_source_unref(source);
    }

    void begin(Launch launch) {
        const auto scheme = system::urlScheme(launch.url);
        const GlibOwned<GAppInfo> handler(g_app_info_get_default_for_uri_scheme(scheme.c_str()));
        if (!handler) {
            launch.ended(fmt::format("no application is registered to open {}: URLs", scheme));
            return;
        }
        holdBus();
        if (!bus_ && g_app_info_get_commandline(handler.get()) == nullptr) {
            launch.ended(
                fmt::format("{} can be reached over the session bus only, and there is none",
                            g_app_info_get_id(handler.get())));
            return;
        }
        auto& kept = launches_.emplace_back(std::move(launch));
        GList urls{.data = kept.url.data(), .next = nullptr, .prev = nullptr};
        const auto context = contextFor(handler.get(), kept.token);
        g_app_info_launch_uris_async(handler.get(), &urls, context.get(), cancellable_.get(),
                                     finish, &kept);
    }

    /// A context without a token is nothing to an application on the bus but, in GLib 2.74, a
    /// complaint when that cannot be reached.
    [[nodiscard]] GlibOwned<GAppLaunchContext> contextFor(GAppInfo* handler,
                                                          const std::string& token) const {
        const bool isOnBus =
            bus_ && G_IS_DESKTOP_APP_INFO(handler) &&
            g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(handler), "DBusActivatable") != 0;
        return isOnBus && token.empty() ? nullptr : makeLaunchContext(token, variables_);
    }

    /// GIO speaks to some handlers over the session bus. The connection belongs to the whole
    /// process, which GLib would end together with the bus.
    void holdBus() {
        if (!bus_ || g_dbus_connection_is_closed(bus_.get()) != 0) {
            bus_.reset();
            bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, cancellable_.get(), nullptr));
        }
        if (bus_) {
            g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
        }
    }

    static void finish(GObject* source, GAsyncResult* result, void* data) {
        GlibErrorSlot error;
        g_app_info_launch_uris_finish(G_APP_INFO(source), result, error.place());
        const auto& launch = *static_cast<Launch*>(data);
        launch.ended(error.message());
        launch.worker->launches_.remove_if([&](const Launch& each) { return &each == &launch; });
    }

    ApplicationVariables variables_;
    GlibOwned<GMainContext> context_;
    GlibOwned<GMainLoop> loop_;
    GlibOwned<GCancellable> cancellable_;
    GlibOwned<GDBusConnection> bus_;
    std::list<Launch> launches_;  ///< Where GIO finds them again.
    std::thread thread_;
};

GioUrlOpener::GioUrlOpener(MakeActivationToken makeToken, ApplicationVariables variables)
    : makeToken_(std::move(makeToken)), variables_(std::move(variables)) {}

GioUrlOpener::~GioUrlOpener() = default;

void GioUrlOpener::open(const std::string& url, OpenOptions options,
                        std::function<void(std::string error)> completed) {
    if (!worker_) {
        worker_ = std::make_unique<Worker>(variables_);
    }
    // The worker is joined before the opener is gone, so `this` is there when it calls.
    auto ended = [this, completed = std::move(completed)](std::string error) {
        QMetaObject::invokeMethod(
            this, [completed, error = std::move(error)] { completed(error); },
            Qt::QueuedConnection);
    };
    const auto token = options.activates && makeToken_ ? makeToken_() : std::string();
    worker_->launch(url, token, std::move(ended));
}

}  // namespace kelmar::host
