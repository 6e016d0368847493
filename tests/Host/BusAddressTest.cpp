#include <gtest/gtest.h>

#include "Host/BusAddress.h"

namespace kelmar::host {
namespace {

using namespace std::string_literals;

struct AddressCase {
    const char* name;
    const char* address;
    std::optional<std::string> socket;
};

class BusAddressTable : public testing::TestWithParam<AddressCase> {};

TEST_P(BusAddressTable, NamesItsSocket) {
    EXPECT_EQ(unixSocketOf(GetParam().address), GetParam().socket);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, BusAddressTable,
    testing::Values(AddressCase{"Path", "unix:path=/run/user/1000/bus", "/run/user/1000/bus"},
                    AddressCase{"Guid", "unix:path=/tmp/bus,guid=0123", "/tmp/bus"},
                    AddressCase{"KeyBefore", "unix:guid=0123,path=/tmp/bus", "/tmp/bus"},
                    AddressCase{"FirstOfSeveral", "unix:path=/tmp/a;unix:path=/tmp/b", "/tmp/a"},
                    AddressCase{"Escaped", "unix:path=/tmp/a%20b%2Cc", "/tmp/a b,c"},
                    AddressCase{"Abstract", "unix:abstract=/tmp/bus,guid=0", "\0/tmp/bus"s},
                    AddressCase{"BrokenEscape", "unix:path=/tmp/%2", std::nullopt},
                    AddressCase{"NoHexadecimalDigits", "unix:path=/tmp/%zz", std::nullopt},
                    AddressCase{"SignInEscape", "unix:abstract=%-1", std::nullopt},
                    AddressCase{"OtherTransport", "tcp:host=localhost,port=1", std::nullopt},
                    AddressCase{"OtherKeys", "unix:dir=/tmp", std::nullopt},
                    AddressCase{"Disabled", "disabled:", std::nullopt},
                    AddressCase{"Nothing", "", std::nullopt}),
    [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace kelmar::host
