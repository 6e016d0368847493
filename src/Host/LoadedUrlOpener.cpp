#include "Host/LoadedUrlOpener.h"

#include <QPluginLoader>
#include <fmt/format.h>
#include <utility>

namespace kelmar::host {

LoadedUrlOpener::LoadedUrlOpener(std::string path, MakeActivationToken makeToken,
                                 ApplicationVariables variables)
    : path_(std::move(path)), makeToken_(std::move(makeToken)), variables_(std::move(variables)) {}

LoadedUrlOpener::~LoadedUrlOpener() = default;

void LoadedUrlOpener::open(const std::string& url, OpenOptions options,
                           std::function<void(std::string error)> completed) {
    if (std::string obstacle = opener_ ? std::string() : load(); !obstacle.empty()) {
        QMetaObject::invokeMethod(
            this,
            [completed = std::move(completed), obstacle = std::move(obstacle)] {
                completed(obstacle);
            },
            Qt::QueuedConnection);
        return;
    }
    opener_->open(url, options, std::move(completed));
}

std::string LoadedUrlOpener::load() {
    QPluginLoader loader(QString::fromStdString(path_));
    // What it has registered with GLib stays registered, and would point to code that is gone.
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    const auto* const module = qobject_cast<UrlOpenerModule*>(loader.instance());
    if (module == nullptr) {
        return fmt::format("{}, which opens URLs, cannot be loaded ({}); install the widgets anew",
                           path_, loader.errorString().toStdString());
    }
    opener_ = module->makeOpener(makeToken_, variables_);
    return {};
}

}  // namespace kelmar::host
