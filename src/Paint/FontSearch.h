#pragma once

#include <QString>
#include <future>

#include "Paint/FontSet.h"

namespace kelmar::paint {

/// Finds the desktop's fonts on a thread of its own. To read Fontconfig's configuration and to list
/// what is installed takes longer than anything else a program with texts does at its start, and
/// nobody needs a font before there is something to write.
class FontSearch {
public:
    /// Begins with what can be read before there is a Qt application.
    FontSearch();
    /// Waits for the end of what has begun.
    ~FontSearch();
    FontSearch(const FontSearch&) = delete;
    FontSearch& operator=(const FontSearch&) = delete;

    /// Goes on to the families themselves. To be called once, in a Qt application with that user
    /// interface family.
    void begin(const QString& uiFamily);
    /// What is found; to be waited for.
    [[nodiscard]] const std::shared_future<FontSet>& fonts() const { return fonts_; }

private:
    std::promise<QString> uiFamily_;
    std::shared_future<FontSet> fonts_;
};

}  // namespace kelmar::paint
