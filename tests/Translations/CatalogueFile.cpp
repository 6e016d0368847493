#include "tests/Translations/CatalogueFile.h"

#include <fstream>
#include <stdexcept>
#include <string_view>

namespace kelmar::translations {

namespace {

/// The text of one quoted piece.
std::string unquoted(std::string_view quoted) {
    if (quoted.size() < 2 || quoted.front() != '"' || quoted.back() != '"') {
        throw std::runtime_error("not quoted: " + std::string(quoted));
    }
    std::string text;
    quoted = quoted.substr(1, quoted.size() - 2);
    for (std::size_t index = 0; index < quoted.size(); ++index) {
        if (quoted[index] == '\\') {
            ++index;
            text += quoted.at(index) == 'n' ? '\n' : quoted.at(index);
        } else {
            text += quoted[index];
        }
    }
    return text;
}

class Reader {
public:
    void take(std::string_view line) {
        constexpr std::string_view keyword = "msgid ";
        constexpr std::string_view translation = "msgstr ";
        if (line.starts_with("#,")) {
            isFuzzy_ = line.find("fuzzy") != std::string_view::npos;
        } else if (line.starts_with(keyword)) {
            key_ = unquoted(line.substr(keyword.size()));
            target_ = &key_;
        } else if (line.starts_with(translation)) {
            beginTranslation(line.substr(translation.size()));
        } else if (line.starts_with('"') && target_ != nullptr) {
            *target_ += unquoted(line);
        } else if (!line.empty() && line.front() != '#') {
            throw std::runtime_error("not understood: " + std::string(line));
        }
    }

    [[nodiscard]] std::map<std::string, Message> messages() && {
        messages_.erase("");
        return std::move(messages_);
    }

private:
    void beginTranslation(std::string_view quoted) {
        const auto [place, isNew] = messages_.emplace(key_, Message{unquoted(quoted), isFuzzy_});
        if (!isNew) {
            throw std::runtime_error("twice: " + key_);
        }
        target_ = &place->second.translation;
        isFuzzy_ = false;
    }

    std::map<std::string, Message> messages_;
    std::string key_;
    bool isFuzzy_ = false;
    std::string* target_ = nullptr;
};

}  // namespace

std::map<std::string, Message> readCatalogue(const std::string& path) {
    std::ifstream file(path);
    if (!file) {
        throw std::runtime_error("cannot be read: " + path);
    }
    Reader reader;
    for (std::string line; std::getline(file, line);) {
        reader.take(line);
    }
    return std::move(reader).messages();
}

}  // namespace kelmar::translations
