#pragma once

#include <chrono>

namespace kelmar::host {

/// Lets a limited number of things through in each span of time.
class Throttle {
public:
    enum class Verdict { pass, drop };

    Throttle(int most, std::chrono::milliseconds span) : most_(most), span_(span) {}

    /// What becomes of one thing that comes at `now`.
    [[nodiscard]] Verdict admit(std::chrono::milliseconds now) {
        if (count_ == 0 || now - began_ >= span_) {
            began_ = now;
            count_ = 0;
        }
        if (count_ >= most_) {
            return Verdict::drop;
        }
        ++count_;
        return Verdict::pass;
    }

private:
    int most_;
    std::chrono::milliseconds span_;
    std::chrono::milliseconds began_{0};
    int count_ = 0;
};

}  // namespace kelmar::host
