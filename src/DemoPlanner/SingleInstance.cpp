#include "DemoPlanner/SingleInstance.h"

#include <QCryptographicHash>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QThread>
#include <array>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "System/Folder.h"

namespace kelmar::demo {

namespace {

using system::Done;
using system::Failure;
using system::Result;
using Kind = StartRequest::Kind;

constexpr int patienceMilliseconds = 5000;
constexpr int pauseMilliseconds = 20;
/// No URL of ours is longer; whatever sends more is not one of ours.
constexpr qint64 longestRequest = qint64{64} * 1024;
constexpr const char* answer = "done\n";

constexpr std::array<std::pair<const char*, Kind>, 4> kindNames{
    {{"show", Kind::show},
     {"background", Kind::stayInBackground},
     {"open", Kind::openUrl},
     {"quit", Kind::quit}}};

QByteArray encode(const StartRequest& request) {
    QJsonObject object{{"url", QString::fromStdString(request.url)},
                       {"activationToken", QString::fromStdString(request.activationToken)}};
    for (const auto& [name, kind] : kindNames) {
        if (kind == request.kind) {
            object.insert("request", name);
        }
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<StartRequest> decode(const QByteArray& line) {
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    for (const auto& [name, kind] : kindNames) {
        if (object.value("request").toString() == QLatin1String(name)) {
            return StartRequest{kind, object.value("url").toString().toStdString(),
                                object.value("activationToken").toString().toStdString()};
        }
    }
    return std::nullopt;
}

std::string lockPath(const std::string& plannerFolder) {
    return plannerFolder + "/" + SingleInstance::lockName;
}

/// In the folder that the desktop keeps for sockets, told apart by planner folder; in the planner
/// folder itself where there is none.
QString socketPath(const std::string& plannerFolder) {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.isEmpty() || !QFileInfo(runtime).isDir()) {
        return QString::fromStdString(plannerFolder) + "/demo-socket";
    }
    const QByteArray digest = QCryptographicHash::hash(QByteArray::fromStdString(plannerFolder),
                                                       QCryptographicHash::Sha256);
    return runtime + "/kelmar-planner-demo-" + QString::fromLatin1(digest.toHex().left(12));
}

/// The program that runs has the lock some moments before it listens.
bool connectTo(QLocalSocket& socket, const std::string& plannerFolder) {
    for (int waited = 0; waited < patienceMilliseconds; waited += pauseMilliseconds) {
        const Result<std::string> path = system::readFile(lockPath(plannerFolder));
        if (path && !path->empty()) {
            socket.connectToServer(QString::fromStdString(*path));
            if (socket.waitForConnected(patienceMilliseconds)) {
                return true;
            }
        }
        QThread::msleep(pauseMilliseconds);
    }
    return false;
}

}  // namespace

Result<std::unique_ptr<SingleInstance>> SingleInstance::claim(const std::string& plannerFolder) {
    const std::string path = lockPath(plannerFolder);
    const int lock = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (lock < 0) {
        return Failure{path + " cannot be opened: " + std::generic_category().message(errno)};
    }
    if (::flock(lock, LOCK_EX | LOCK_NB) != 0) {
        const int reason = errno;
        ::close(lock);
        if (reason == EWOULDBLOCK) {
            return std::unique_ptr<SingleInstance>();
        }
        return Failure{path + " cannot be locked: " + std::generic_category().message(reason)};
    }
    return std::unique_ptr<SingleInstance>(new SingleInstance(lock, plannerFolder));
}

/// The lock goes before the connections do: who waited for the end of this program finds the
/// folder free.
SingleInstance::~SingleInstance() {
    server_.close();
    ::close(lock_);
}

Result<Done> SingleInstance::listen(std::function<void(const StartRequest&)> handle) {
    handle_ = std::move(handle);
    const QString path = socketPath(plannerFolder_);
    QLocalServer::removeServer(path);
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    if (!server_.listen(path)) {
        return Failure{path.toStdString() + ": " + server_.errorString().toStdString()};
    }
    QObject::connect(&server_, &QLocalServer::newConnection, [this] {
        while (QLocalSocket* socket = server_.nextPendingConnection()) {
            greet(socket);
        }
    });
    const QByteArray name = path.toUtf8();
    const bool named =
        ::ftruncate(lock_, 0) == 0 &&
        ::pwrite(lock_, name.constData(), static_cast<std::size_t>(name.size()), 0) == name.size();
    return named ? Result<Done>(Done{}) : Failure{lockPath(plannerFolder_) + " cannot be written"};
}

void SingleInstance::greet(QLocalSocket* socket) {
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] { read(*socket); });
    read(*socket);
}

void SingleInstance::read(QLocalSocket& socket) {
    if (!socket.canReadLine()) {
        if (socket.bytesAvailable() > longestRequest) {
            socket.abort();
        }
        return;
    }
    const std::optional<StartRequest> request = decode(socket.readLine());
    if (!request) {
        socket.abort();
        return;
    }
    handle_(*request);
    socket.write(answer);
    socket.flush();
}

Result<Done> SingleInstance::handOver(const std::string& plannerFolder,
                                      const StartRequest& request) {
    QLocalSocket socket;
    if (!connectTo(socket, plannerFolder)) {
        return Failure{"The planner that runs cannot be reached"};
    }
    socket.write(encode(request));
    while (!socket.canReadLine()) {
        if (!socket.waitForReadyRead(patienceMilliseconds)) {
            return Failure{"The planner that runs does not answer"};
        }
    }
    if (request.kind == Kind::quit) {
        socket.waitForDisconnected(patienceMilliseconds);
    }
    return Done{};
}

}  // namespace kelmar::demo
