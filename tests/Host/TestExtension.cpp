#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <thread>

#include "Kit/Protocol.h"

/// An extension whose widgets and actions behave as they are called, well or badly. It keeps a
/// diary in the file that TEST_EXTENSION_DIARY names.
namespace {

using namespace kelmar;

void note(const std::string& what) {
    if (const char* const path = std::getenv("TEST_EXTENSION_DIARY")) {
        std::ofstream(path, std::ios::app) << what << '\n';
    }
}

void say(const std::string& line) {
    std::cout << line << '\n' << std::flush;
}

void sleepLong() {
    std::this_thread::sleep_for(std::chrono::hours(1));
}

kit::Entry entryNamed(const std::string& text) {
    return {system::Date::since1970(0), {.content = kit::Text{.text = text, .font = {}}}};
}

kit::Bundle bundle() {
    return {.widgets = {{"Good", "Good", "Answers", {kit::Family::small}}}, .controls = {}};
}

void misbehave(const std::string& kind) {
    if (kind == "Dies") {
        std::raise(SIGKILL);
    } else if (kind == "Exits") {
        std::exit(70);
    } else if (kind == "Hangs") {
        sleepLong();
    } else if (kind == "Garbage") {
        say("\xff\xfe this is no message");
    } else if (kind == "Overlong") {
        say(std::string(kit::maximumLineLength + 1, 'x'));
    } else if (kind == "Endless") {
        for (const std::string piece(65'536, 'x'); std::cout << piece;) {
        }
    } else if (kind == "Flood") {
        while (std::cout << "nonsense\n") {
        }
    } else if (kind == "Notifies") {
        while (std::cout << R"({"jsonrpc":"2.0","method":"progress","params":{}})" << '\n') {
        }
    } else if (kind == "Begs") {
        const auto request =
            kit::encodeRequest({std::nullopt, kit::OpenRequest{"clock://again", false, false}});
        while (std::cout << request << '\n') {
        }
    } else if (kind == "Shouts") {
        while (std::cerr << "no line feed, ever. ") {
        }
    } else if (kind == "Slow") {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
    } else if (kind == "Talkative") {
        for (int count = 0; count < 10'000; ++count) {
            std::cerr << "line " << count << '\n';
        }
    }
}

std::string contentFor(const kit::EntryRequest& request) {
    auto entry = entryNamed(request.widgetKind);
    if (request.widgetKind == "Foreign") {
        entry.view.widgetUrl = "https://example.org/";
    } else if (request.widgetKind == "Large") {
        entry = entryNamed(std::string(3 << 20, 'x'));
    }
    return request.entryKind == kit::EntryKind::timeline
               ? kit::encodeTimeline({{entry}, kit::ReloadNever{}})
               : kit::encodeEntry(entry);
}

/// Asks for the URL and waits for the answer.
kit::Response open(const std::string& url) {
    say(kit::encodeRequest({kit::MessageId("open"), kit::OpenRequest{url, false, false}}));
    for (std::string line; std::getline(std::cin, line);) {
        const auto message = kit::decodeMessage(line);
        if (message && std::holds_alternative<kit::Response>(*message)) {
            return std::get<kit::Response>(*message);
        }
    }
    std::exit(0);
}

void perform(const kit::MessageId& id, const kit::Intent& intent) {
    note("perform " + intent.name);
    if (intent.name == "Open") {
        const auto answer = open(std::get<std::string>(intent.parameters.at(0).second));
        const auto* const error = std::get_if<kit::ResponseError>(&answer.outcome);
        note(error != nullptr ? "not opened: " + error->message : "opened");
    }
    if (intent.name == "Fail") {
        say(kit::encodeError(id, {kit::ErrorCode::actionFailed, "it cannot be done"}));
    } else {
        say(kit::encodeResponse(id, kit::emptyResult));
    }
}

void answer(const kit::Request& request) {
    const auto& id = *request.id;
    std::visit(kit::Match{
                   [&](const kit::InitializeRequest&) {
                       say(kit::encodeResponse(id, kit::encodeBundle(bundle())));
                   },
                   [&](const kit::EntryRequest& entry) {
                       misbehave(entry.widgetKind);
                       say(kit::encodeResponse(id, contentFor(entry)));
                   },
                   [&](const kit::ControlRequest&) {},
                   [&](const kit::PerformRequest& action) { perform(id, action.intent); },
                   [&](const kit::DiagnoseRequest&) {
                       say(kit::encodeResponse(id, kit::encodeFindings({"All is well."})));
                   },
                   [&](const kit::OpenRequest&) {},
               },
               request.body);
}

}  // namespace

int main() {
    note("started");
    for (std::string line; std::getline(std::cin, line);) {
        const auto message = kit::decodeMessage(line);
        if (message && std::holds_alternative<kit::Request>(*message)) {
            answer(std::get<kit::Request>(*message));
        }
    }
    note("input ended");
    if (std::getenv("TEST_EXTENSION_STAYS") != nullptr) {
        sleepLong();
    }
}
