#pragma once

#include <QObject>

#include "Host/UrlOpenerModule.h"

namespace kelmar::host {

/// Opens URLs through GIO (see `GioUrlOpener`).
class GioUrlOpenerModule final : public QObject, public UrlOpenerModule {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KELMAR_URL_OPENER_MODULE)
    Q_INTERFACES(kelmar::host::UrlOpenerModule)

public:
    [[nodiscard]] std::unique_ptr<UrlOpener> makeOpener(
        MakeActivationToken makeToken, ApplicationVariables variables) const override;
};

}  // namespace kelmar::host
