#include <QByteArray>
#include <QGuiApplication>
#include <gtest/gtest.h>
#include <memory>

/// Gives every test program that it is linked into a GUI application without a display, so that
/// pictures can be drawn anywhere.
namespace {

class GuiEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        application_ = std::make_unique<QGuiApplication>(argumentCount_, arguments_);
    }
    void TearDown() override { application_.reset(); }

private:
    // The application keeps referring to both as long as it lives.
    char name_[6] = "tests";
    char* arguments_[2] = {name_, nullptr};
    int argumentCount_ = 1;
    std::unique_ptr<QGuiApplication> application_;
};

// GoogleTest owns it from here on.
const ::testing::Environment* const environment =
    ::testing::AddGlobalTestEnvironment(new GuiEnvironment);

}  // namespace
