#include <QGuiApplication>
#include <fmt/format.h>
#include <optional>

#include "Kit/Metrics.h"
#include "Paint/WidgetPicture.h"
#include "System/LocaleTexts.h"
#include "Tools/Commands.h"
#include "Tools/GallerySheet.h"

namespace kelmar::tools {

namespace {

/// Pictures come out the same on every machine that has this font; elsewhere in the system's own.
constexpr const char* pictureFont = "Inter";

/// Qt draws text only inside an application. This one needs no display and asks for none.
class PictureApplication {
public:
    PictureApplication() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        // Qt remarks on missing session folders, which a picture does not need; what goes wrong
        // with one is said by whoever saves it.
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        application_.emplace(argumentCount_, arguments_);
        resources_.emplace(paint::FontSet(pictureFont));
    }

    [[nodiscard]] const paint::PaintResources& resources() const { return *resources_; }

private:
    int argumentCount_ = 1;
    char name_[17] = "kelmar-widgetctl";     // NOLINT: Qt wants it writable
    char* arguments_[2] = {name_, nullptr};  // NOLINT
    std::optional<QGuiApplication> application_;
    std::optional<paint::PaintResources> resources_;
};

int save(const QImage& picture, const std::string& path) {
    if (!picture.save(QString::fromStdString(path), "PNG")) {
        throw CommandError(fmt::format("cannot write the picture {}", path));
    }
    return 0;
}

layout::Direction directionOf(const Options& options) {
    return system::isRightToLeft(options.locale) ? layout::Direction::rightToLeft
                                                 : layout::Direction::leftToRight;
}

}  // namespace

int renderPicture(const Options& options) {
    const PictureApplication application;
    const Stage stage(options);
    const widget::ProvidedTimeline timeline = widgetOf(stage, options).timeline();
    const kit::DrawnEntry entry = timeline.entries.front().draw(environmentOf(options));
    const paint::WidgetPicture picture(entry, options.family, directionOf(options),
                                       application.resources());
    const paint::PaintStyle style{
        .appearance = {.scheme = options.scheme, .renderingMode = options.mode, .accent = {}},
        .scale = options.scale};
    return save(picture.image(style, stage.surroundings().clock.now()), options.output);
}

int drawGallery(const Options& options) {
    const PictureApplication application;
    const Stage stage(options);
    return save(gallerySheet(stage, directionOf(options), application.resources(), options.scale),
                options.output);
}

}  // namespace kelmar::tools
