#include "Paint/FontSearch.h"

#include <fontconfig/fontconfig.h>

namespace kelmar::paint {

FontSearch::FontSearch()
    : fonts_(std::async(std::launch::async, [family = uiFamily_.get_future()]() mutable {
          // Qt finds it done. Should it fail, Qt fails in the same way and has a font all the same.
          FcInit();
          return FontSet(family.get());
      })) {}

FontSearch::~FontSearch() {
    uiFamily_ = {};  // So that nobody goes on waiting for a family.
    fonts_.wait();
}

void FontSearch::begin(const QString& uiFamily) {
    uiFamily_.set_value(uiFamily);
}

}  // namespace kelmar::paint
