#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "System/Folder.h"

namespace kelmar::testing {

/// A folder in memory that keeps a record of what was asked of it. Entries are listed in the
/// order in which they were put, so that a test chooses the listing order.
class MemoryFolder final : public system::Folder {
public:
    /// Puts a regular file, at the end of the listing when the name is new.
    void put(const std::string& name, std::string bytes) { entry(name).bytes = std::move(bytes); }
    /// Puts an entry that is listed but cannot be read: a folder, a FIFO, a dangling link.
    void putUnreadable(const std::string& name) { entry(name).bytes.reset(); }
    /// Behaves as if the folder were not there, or as if it were back again.
    void setMissing(bool missing) { missing_ = missing; }
    /// Makes every later write fail for this reason.
    void failWrites(std::string reason) { writeFailure_ = std::move(reason); }
    /// Makes every later removal fail for this reason.
    void failRemovals(std::string reason) { removeFailure_ = std::move(reason); }

    [[nodiscard]] bool contains(const std::string& name) const { return find(name) != end(); }
    /// The content of a file that is known to be there.
    [[nodiscard]] std::string content(const std::string& name) const {
        return find(name)->bytes.value();
    }
    /// What was asked, in order: "names", "read NAME", "write NAME", "remove NAME".
    [[nodiscard]] const std::vector<std::string>& calls() const { return calls_; }
    void forgetCalls() { calls_.clear(); }

    [[nodiscard]] std::vector<std::string> names() const override {
        calls_.emplace_back("names");
        std::vector<std::string> result;
        if (!missing_) {
            for (const Entry& entry : entries_)
                result.push_back(entry.name);
        }
        return result;
    }

    [[nodiscard]] system::Result<std::string> read(const std::string& name) const override {
        calls_.push_back("read " + name);
        const auto found = find(name);
        if (missing_ || found == end())
            return system::Failure{"no such file"};
        if (!found->bytes)
            return system::Failure{"not a regular file"};
        return *found->bytes;
    }

    system::Result<system::Done> write(const std::string& name, std::string_view bytes) override {
        calls_.push_back("write " + name);
        if (missing_)
            return system::Failure{"no such folder"};
        if (writeFailure_)
            return system::Failure{*writeFailure_};
        put(name, std::string(bytes));
        return system::Done{};
    }

    system::Result<system::Done> remove(const std::string& name) override {
        calls_.push_back("remove " + name);
        if (removeFailure_)
            return system::Failure{*removeFailure_};
        if (missing_ || !contains(name))
            return system::Failure{"no such file"};
        entries_.erase(find(name));
        return system::Done{};
    }

private:
    struct Entry {
        std::string name;
        std::optional<std::string> bytes;
    };
    using Entries = std::vector<Entry>;

    [[nodiscard]] Entries::const_iterator end() const { return entries_.end(); }
    [[nodiscard]] Entries::const_iterator find(const std::string& name) const {
        return std::find_if(entries_.begin(), entries_.end(),
                            [&](const Entry& entry) { return entry.name == name; });
    }
    Entry& entry(const std::string& name) {
        const auto found = find(name);
        if (found == end())
            return entries_.emplace_back(Entry{name, std::nullopt});
        return entries_[static_cast<std::size_t>(found - entries_.begin())];
    }

    Entries entries_;
    bool missing_ = false;
    std::optional<std::string> writeFailure_;
    std::optional<std::string> removeFailure_;
    mutable std::vector<std::string> calls_;
};

}  // namespace kelmar::testing
