#include "Host/ExtensionSession.h"

#include <fmt/format.h>
#include <utility>

namespace kelmar::host {
namespace {

std::string seconds(std::chrono::milliseconds time) {
    return fmt::format("{:g} s", std::chrono::duration<double>(time).count());
}

RequestOutcome outcomeOf(const kit::Response& response) {
    return std::visit(kit::Match{
                          [](const std::string& result) -> RequestOutcome { return result; },
                          [](const kit::ResponseError& error) -> RequestOutcome {
                              return RequestFailure{RequestFailure::Kind::refused, error.message};
                          },
                      },
                      response.outcome);
}

}  // namespace

ExtensionSession::ExtensionSession(SessionOwner& owner, const Parts& parts)
    : owner_(owner),
      parts_(parts),
      deadlines_(parts.timers, parts.limits.answer,
                 [this](RequestNumber number) {
                     fail(fmt::format("did not answer for {} within {}",
                                      describe(outstanding_.at(number).body),
                                      seconds(parts_.limits.answer)));
                 }),
      urls_(parts.urlGate, parts.limits.waitingUrls),
      process_(parts.launcher.launch(*this)) {
    send({kit::InitializeRequest{parts_.systemVersion}, Patience::lasting, {}});
}

ExtensionSession::~ExtensionSession() {
    end(Ending::gently);
}

void ExtensionSession::send(ExtensionRequest request) {
    const auto number = ++lastNumber_;
    process_->write(kit::encodeRequest({number, request.body}));
    outstanding_.emplace(number, std::move(request));
    deadlines_.sent(number);
}

void ExtensionSession::end(Ending ending) {
    if (std::exchange(isOver_, true)) {
        return;
    }
    deadlines_.suspend();
    process_->end(ending);
    if (urls_.waiting() > 0) {
        parts_.log.write(LogLevel::warning,
                         fmt::format("{}: {} URLs that it asked for are not opened", parts_.name,
                                     urls_.waiting()));
    }
    urls_.clear();
}

std::vector<ExtensionRequest> ExtensionSession::takeUnanswered() {
    std::vector<ExtensionRequest> unanswered;
    while (!outstanding_.empty()) {
        const auto next =
            outstanding_.size() > 1 ? std::next(outstanding_.begin()) : outstanding_.begin();
        unanswered.push_back(std::move(outstanding_.extract(next).mapped()));
    }
    return unanswered;
}

void ExtensionSession::lineCame(std::string_view line) {
    const auto message = kit::decodeMessage(line);
    if (!message) {
        handle(message.failure(), line);
        return;
    }
    std::visit([this](const auto& known) { handle(known); }, *message);
}

void ExtensionSession::overlongLineCame() {
    fail(fmt::format("printed a line of more than {} MiB", kit::maximumLineLength >> 20U));
}

void ExtensionSession::errorLineCame(std::string_view line) {
    // A program says its name by itself where it is used to being started by hand.
    if (line.starts_with(parts_.name + ": ")) {
        line.remove_prefix(parts_.name.size() + 2);
    }
    parts_.errorLines.write(LogLevel::notice, fmt::format("{}: {}", parts_.name, line));
}

void ExtensionSession::processEnded(std::string how) {
    fail(how);
}

/// The extension must not wait for an answer to a request that was not understood.
void ExtensionSession::handle(const kit::InvalidLine& invalid, std::string_view line) {
    constexpr std::size_t enough = 100;
    if (invalid.answer) {
        if (const auto* const error = std::get_if<kit::ResponseError>(&invalid.answer->outcome)) {
            process_->write(kit::encodeError(invalid.answer->id, *error));
        }
    }
    noteFault(fmt::format("printed a line that is no message ({}): {}", invalid.reason,
                          line.substr(0, enough)));
}

void ExtensionSession::handle(const kit::Request& request) {
    if (const auto* const open = std::get_if<kit::OpenRequest>(&request.body)) {
        openUrl(request.id, *open);
        return;
    }
    if (request.id) {
        process_->write(kit::encodeError(
            request.id, {kit::ErrorCode::methodNotFound, "a host does not answer this request"}));
    }
    noteFault(fmt::format("asked for {}, which is not for a host to give", describe(request.body)));
}

void ExtensionSession::handle(const kit::Response& response) {
    const auto* const number = response.id ? std::get_if<RequestNumber>(&*response.id) : nullptr;
    const auto found = number != nullptr ? outstanding_.find(*number) : outstanding_.end();
    if (found == outstanding_.end()) {
        noteFault("gave an answer to a request that is not outstanding");
        return;
    }
    const auto request = std::move(found->second);
    outstanding_.erase(found);
    deadlines_.answered(*number);
    if (std::holds_alternative<kit::InitializeRequest>(request.body)) {
        introduce(response);
    } else {
        owner_.sessionAnswered();
        request.answer(outcomeOf(response));
    }
    tellIfIdle();
}

void ExtensionSession::introduce(const kit::Response& response) {
    const auto outcome = outcomeOf(response);
    if (!outcome) {
        fail("does not want to work with this host: " + outcome.failure().reason);
        return;
    }
    auto bundle = kit::decodeBundle(*outcome);
    if (!bundle) {
        fail("says what it offers in a form that is not understood: " + bundle.failure().reason);
        return;
    }
    // Taken at its word it might never be asked again: nobody puts on the desktop what nobody
    // offers.
    if (*bundle == kit::Bundle{}) {
        fail("offers no widgets");
        return;
    }
    isReady_ = true;
    // Its start is not to be counted against what was asked before it was there.
    deadlines_.beginAnew();
    owner_.sessionReady(*std::move(bundle));
}

void ExtensionSession::tellIfIdle() {
    if (!isOver_ && isIdle()) {
        owner_.sessionWentIdle();
    }
}

/// How long the desktop takes to open a URL is not the extension's fault.
void ExtensionSession::openUrl(const Id& id, const kit::OpenRequest& request) {
    if (!parts_.urlGate.allows(request.url)) {
        refuse(id, "this URL may not be opened", request.url);
        return;
    }
    deadlines_.suspend();
    const auto hasRoom = urls_.add(
        {request.url,
         {.activates = request.activates, .addsToRecentItems = request.addsToRecentItems},
         [this, id, url = request.url](const std::string& error) { endOpening(id, url, error); }});
    if (!hasRoom) {
        refuse(id, "too many URLs wait to be opened", request.url);
    }
}

void ExtensionSession::refuse(const Id& id, const std::string& reason, const std::string& url) {
    answer(id, reason);
    noteFault(fmt::format("asked to open {}: {}", url, reason));
}

void ExtensionSession::endOpening(const Id& id, const std::string& url, const std::string& error) {
    if (!error.empty()) {
        parts_.mistakes.write(LogLevel::warning, fmt::format("{} is not opened: {}", url, error));
    }
    answer(id, error);
    if (urls_.isEmpty()) {
        deadlines_.resume();
    }
    tellIfIdle();
}

/// Without an error it went well.
void ExtensionSession::answer(const Id& id, const std::string& error) {
    if (!id) {
        return;
    }
    process_->write(error.empty() ? kit::encodeResponse(*id, kit::emptyResult)
                                  : kit::encodeError(id, {kit::ErrorCode::internalError, error}));
}

void ExtensionSession::noteFault(const std::string& what) {
    if (isOver_) {
        return;
    }
    parts_.mistakes.write(LogLevel::warning, fmt::format("{}: {}", parts_.name, what));
    if (++faults_ > parts_.limits.faults) {
        fail("made too many mistakes");
    }
}

void ExtensionSession::fail(const std::string& how) {
    if (isOver_) {
        return;
    }
    end(Ending::atOnce);
    owner_.sessionFailed(how);
}

}  // namespace kelmar::host
