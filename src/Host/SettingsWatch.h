#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "Host/FileWatch.h"
#include "Host/ReloadJournal.h"

namespace kelmar::host {

/// Where the machine keeps the settings that decide how its people read dates and words.
struct SettingsFiles {
    /// The time zone that counts where TZ says nothing: a link into the zone data (localtime(5)).
    std::string timeZone = "/etc/localtime";
    /// Variables of the locale, the later file winning (locale.conf(5), and Debian's own).
    std::vector<std::string> locale{"/etc/default/locale", "/etc/locale.conf"};
};

/// Variables of the locale by their names, such as LANG.
using LocaleVariables = std::map<std::string, std::string>;

/// Those in this process's environment. Programs that choose a language change it for themselves,
/// so what the session said is to be read before that.
[[nodiscard]] LocaleVariables localeVariables();

/// Notices when the machine's time zone or locale is set to another while this process runs,
/// whoever does it: the services that do it for a desktop write these files as well. A process and
/// its children would otherwise keep what they were started with.
///
/// The variables of a changed locale go into this process's environment, but only those that had
/// come from there: somebody whose session differs from the machine on purpose keeps it so.
class SettingsWatch {
public:
    /// Captures what the files say now. `session` is what this process was started with. `changed`
    /// runs after the environment says the same as the files.
    SettingsWatch(FileWatch& fileWatch, SettingsFiles files, LocaleVariables session,
                  std::function<void(ReloadCause)> changed);
    ~SettingsWatch();
    SettingsWatch(const SettingsWatch&) = delete;
    SettingsWatch& operator=(const SettingsWatch&) = delete;

private:
    void look();
    void adopt(const LocaleVariables& variables);
    [[nodiscard]] std::string timeZoneFile() const;
    [[nodiscard]] LocaleVariables readLocale() const;

    FileWatch& fileWatch_;
    SettingsFiles files_;
    std::function<void(ReloadCause)> changed_;
    std::string timeZone_;
    LocaleVariables locale_;
    LocaleVariables environment_;  ///< What it says but for what this process chose itself.
};

}  // namespace kelmar::host
