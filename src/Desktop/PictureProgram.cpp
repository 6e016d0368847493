#include "Desktop/PictureProgram.h"

#include <QApplication>
#include <QTimer>
#include <memory>
#include <optional>
#include <vector>

#include "Desktop/ArrangementFile.h"
#include "Desktop/DesktopPicture.h"
#include "Desktop/FirstArrangement.h"

namespace kelmar::desktop {

namespace {

constexpr int failureStatus = 1;
/// How long a picture waits for the extension, in milliseconds.
constexpr int pictureDeadline = 10'000;

/// The widgets that a picture shows: those of the arrangement and of the options, else the first
/// ones, which only the extension can name.
std::vector<WidgetPlace> placesInPicture(const Options& options,
                                         const std::optional<Arrangement>& arrangement,
                                         const kit::Bundle& bundle) {
    const std::vector<ScreenArea> screens = pictureScreens();
    if (!arrangement && options.additions.empty()) {
        return firstWidgets(bundle, screens);
    }
    std::vector<WidgetPlace> places =
        arrangement ? arrangement->widgets : std::vector<WidgetPlace>();
    for (const Addition& addition : options.additions) {
        places.push_back(
            freshPlace(addition.kind, addition.family, places, screens, screens.front()));
    }
    return places;
}

paint::PaintStyle pictureStyle(const Options& options,
                               const std::optional<Arrangement>& arrangement) {
    const kit::RenderingMode keptMode =
        arrangement ? arrangement->renderingMode : kit::RenderingMode::fullColor;
    return {.appearance = {.scheme = options.scheme == SchemeChoice::dark ? paint::Scheme::dark
                                                                          : paint::Scheme::light,
                           .renderingMode = options.renderingMode.value_or(keptMode),
                           .accent = {}},
            .scale = qApp->devicePixelRatio(),
            .redaction = paint::Redaction::shown};
}

}  // namespace

int drawDesktop(Ground& ground, const Options& options) {
    host::Log& log = ground.log;
    const std::optional<Arrangement> arrangement =
        ArrangementFile(ArrangementFile::standardPath(), log).load();
    const paint::PaintResources resources(ground.fontSearch.fonts());
    std::unique_ptr<DesktopPicture> picture;
    int status = failureStatus;
    const auto finish = [&](const QImage& image) {
        const QString file = QString::fromStdString(*options.pictureFile);
        if (image.save(file, "PNG")) {
            status = 0;
        } else {
            log.write(host::LogLevel::error,
                      "The picture could not be written to " + *options.pictureFile + ".");
        }
        QApplication::quit();
    };
    const auto begin = [&] {
        picture = std::make_unique<DesktopPicture>(
            DesktopPicture::Parts{ground.host, ground.clock, resources, ground.direction},
            placesInPicture(options, arrangement, *ground.host.bundle()),
            pictureStyle(options, arrangement));
        QObject::connect(picture.get(), &DesktopPicture::finished, qApp, finish);
    };
    QObject::connect(&ground.host, &host::WidgetHost::bundleChanged, qApp, begin);
    QTimer::singleShot(pictureDeadline, qApp, [&] {
        log.write(host::LogLevel::error, "The extension has given nothing to draw in time.");
        QApplication::quit();
    });
    QApplication::exec();
    return status;
}

}  // namespace kelmar::desktop
