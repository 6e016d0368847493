#pragma once

#include <QtPlugin>
#include <functional>
#include <memory>
#include <string>

#include "Host/ApplicationVariables.h"
#include "Host/UrlOpener.h"

namespace kelmar::host {

/// Makes a token with which an application may come to the front, or the empty text.
using MakeActivationToken = std::function<std::string()>;

/// What a module gives that opens URLs (see `LoadedUrlOpener`): a Qt plugin.
class UrlOpenerModule {
public:
    virtual ~UrlOpenerModule() = default;
    /// `variables` are for the handlers that the opener starts.
    [[nodiscard]] virtual std::unique_ptr<UrlOpener> makeOpener(
        MakeActivationToken makeToken, ApplicationVariables variables) const = 0;
};

}  // namespace kelmar::host

#define KELMAR_URL_OPENER_MODULE "com.kelmarplanner.Widgets.UrlOpenerModule/1"
Q_DECLARE_INTERFACE(kelmar::host::UrlOpenerModule, KELMAR_URL_OPENER_MODULE)
