#pragma once

#include <QObject>
#include <memory>
#include <string>

#include "Host/UrlOpenerModule.h"

namespace kelmar::host {

/// Opens URLs with a module that is loaded with the first of them: what it brings with it takes
/// more than a megabyte, and a program that stays for months may never open one.
class LoadedUrlOpener final : public QObject, public UrlOpener {
public:
    /// `path` is the module's file; the rest is for the opener in it.
    LoadedUrlOpener(std::string path, MakeActivationToken makeToken,
                    ApplicationVariables variables);
    ~LoadedUrlOpener() override;

    /// While the module cannot be loaded the error says why, and the next URL tries it anew.
    void open(const std::string& url, OpenOptions options,
              std::function<void(std::string error)> completed) override;

private:
    /// Returns what is in the way, if anything is.
    [[nodiscard]] std::string load();

    std::string path_;
    MakeActivationToken makeToken_;
    ApplicationVariables variables_;
    std::unique_ptr<UrlOpener> opener_;  ///< From the first URL on.
};

}  // namespace kelmar::host
