#pragma once

#include <QString>
#include <optional>

#include "Desktop/Arrangement.h"
#include "Host/Log.h"

namespace kelmar::desktop {

/// The file in which the arrangement outlives the program. Its troubles are logged and survived:
/// a desktop that cannot keep its places is better than none.
class ArrangementFile {
public:
    /// `log` must outlive the file.
    ArrangementFile(QString path, host::Log& log);
    /// kelmar-widgets/arrangement.json in the user's configuration folder (freedesktop.org's
    /// XDG Base Directories).
    [[nodiscard]] static QString standardPath();

    /// Whether there is no file, or one without a widget. One that makes no sense may hold some.
    [[nodiscard]] bool isEmpty() const;
    /// Nothing on the first start. A file that makes no sense is set aside under a name of its own
    /// and counts as none.
    [[nodiscard]] std::optional<Arrangement> load();
    /// Replaces the file as a whole, so that a crash or a full disk leaves the old one. Never
    /// replaces one that could be neither read nor set aside. A trouble that lasts is logged once.
    void save(const Arrangement& arrangement);

private:
    void setAside(const std::string& reason);
    [[nodiscard]] QString write(const QByteArray& json) const;

    QString path_;
    host::Log& log_;
    bool mayReplace_ = true;
    QString trouble_;  ///< Why the last saving failed; empty if it did not.
};

}  // namespace kelmar::desktop
