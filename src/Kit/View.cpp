#include "Kit/View.h"

namespace kelmar::kit {

Child::Child(View view) : view_(std::make_shared<const View>(std::move(view))) {}

bool operator==(const Child& first, const Child& second) {
    return first.view_ == second.view_ || *first == *second;
}

// Here rather than in the class, where View is not complete yet.
bool HStack::operator==(const HStack&) const = default;
bool VStack::operator==(const VStack&) const = default;
bool ZStack::operator==(const ZStack&) const = default;

}  // namespace kelmar::kit
