#include "Host/SessionBus.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include "Host/BusAddress.h"
#include "System/Descriptor.h"

namespace kelmar::host {
namespace {

using namespace std::chrono_literals;

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

/// The socket's own limit: a wait by the clock would be none where that is made to run faster, as
/// for trying out a month of days. The end of the connection is an answer too.
bool answersWithin(const system::Descriptor& descriptor, std::chrono::microseconds patience) {
    const auto wait = std::max(patience, 1us);  // To a socket, none at all is for ever.
    const timeval limit{.tv_sec = wait / 1s, .tv_usec = (wait % 1s).count()};
    setsockopt(descriptor.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    fcntl(descriptor.get(), F_SETFL, 0);  // A limit counts for calls that wait.
    char first = '\0';
    return recv(descriptor.get(), &first, 1, 0) >= 0 || errno != EAGAIN;
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
    return !answersWithin(descriptor, patience);
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
