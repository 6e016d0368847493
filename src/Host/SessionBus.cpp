#include "Host/SessionBus.h"

#include <QFile>
#include <cerrno>
#include <cstring>
#include <optional>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>

#include "Host/BusAddress.h"
#include "System/Descriptor.h"

namespace kelmar::host {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
/// A transport that does not exist, which is what others set too in order to have no bus.
constexpr std::string_view noAddress = "disabled:";
/// A bus that is started by its first client may have to be read from a slow disk.
constexpr std::chrono::milliseconds startingTime{2'000};

std::string sessionBusAddress() {
    const auto address = qgetenv(addressVariable);
    return address.isEmpty() ? "unix:path=" + qgetenv("XDG_RUNTIME_DIR").toStdString() + "/bus"
                             : address.toStdString();
}

enum class Connection { made, refused, ignored };

Connection connectTo(const system::Descriptor& descriptor, const std::string& name) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (name.empty() || name.size() >= sizeof address.sun_path) {
        return Connection::refused;
    }
    std::memcpy(static_cast<void*>(address.sun_path), name.data(), name.size());
    // Names outside the file system end where the address does.
    const auto size = offsetof(sockaddr_un, sun_path) + name.size() + (name[0] == '\0' ? 0 : 1);
    if (connect(descriptor.get(), reinterpret_cast<const sockaddr*>(&address),
                static_cast<socklen_t>(size)) == 0) {
        return Connection::made;
    }
    return errno == EAGAIN ? Connection::ignored : Connection::refused;  // EAGAIN: too many wait.
}

}  // namespace

bool mayHaveSessionBus() {
    return qEnvironmentVariableIsSet(addressVariable)
               ? qgetenv(addressVariable) != QByteArrayView(noAddress)
               : QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
}

/// Asks which ways there are to say who one is, which a bus answers by itself.
bool isSilentBus(const std::string& address, std::chrono::milliseconds patience) {
    using namespace std::string_view_literals;
    constexpr auto question = "\0AUTH\r\n"sv;
    const auto name = unixSocketOf(address);
    const system::Descriptor descriptor(
        name ? socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0) : -1);
    if (!descriptor.isOpen()) {
        return false;
    }
    const auto connection = connectTo(descriptor, *name);
    if (connection != Connection::made) {
        return connection == Connection::ignored;
    }
    if (send(descriptor.get(), question.data(), question.size(), MSG_NOSIGNAL) < 0) {
        return false;
    }
    pollfd answer{.fd = descriptor.get(), .events = POLLIN, .revents = 0};
    return poll(&answer, 1, static_cast<int>(patience.count())) == 0;
}

std::string leaveSilentSessionBus() {
    auto address = mayHaveSessionBus() ? sessionBusAddress() : std::string();
    if (address.empty() || !isSilentBus(address, startingTime)) {
        return {};
    }
    qputenv(addressVariable, QByteArray::fromStdString(std::string(noAddress)));
    return address;
}

}  // namespace kelmar::host
