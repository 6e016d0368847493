#pragma once

namespace kelmar::demo {

/// Makes one visitor of several functions, one for each alternative of a variant: a missing one
/// does not compile.
template <class... Functions>
struct Match : Functions... {
    using Functions::operator()...;
};

template <class... Functions>
Match(Functions...) -> Match<Functions...>;

}  // namespace kelmar::demo
