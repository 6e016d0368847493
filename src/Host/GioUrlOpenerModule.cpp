#include "Host/GioUrlOpenerModule.h"

#include <utility>

#include "Host/GioUrlOpener.h"

namespace kelmar::host {

std::unique_ptr<UrlOpener> GioUrlOpenerModule::makeOpener(MakeActivationToken makeToken,
                                                          ApplicationVariables variables) const {
    return std::make_unique<GioUrlOpener>(std::move(makeToken), std::move(variables));
}

}  // namespace kelmar::host
