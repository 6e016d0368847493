#pragma once

#include <stdexcept>

#include "Tools/Options.h"
#include "Tools/Stage.h"

/// The commands of kelmar-widgetctl. Each prints its answer on standard output and returns the
/// program's exit status.
namespace kelmar::tools {

/// What was asked for does not exist or makes no sense: one line for standard error.
class UsageError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A command could not do what it was asked: one line for standard error.
class CommandError final : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The place that a widget is drawn for.
[[nodiscard]] kit::Environment environmentOf(const Options& options);
/// The widget that the options name, in a family that it has.
[[nodiscard]] const widget::BundledWidget& widgetOf(const Stage& stage, const Options& options);

int listBundle(const Options& options);
int showControl(const Options& options);
int showTimeline(const Options& options);
int showSnapshot(const Options& options);
int showPlaceholder(const Options& options);
int showView(const Options& options);
int performAction(const Options& options);
int checkSnapshot(const Options& options);

int reloadOnDesktop(const Options& options);
int explainDesktop(const Options& options);

int renderPicture(const Options& options);
int drawGallery(const Options& options);

}  // namespace kelmar::tools
