#include <gtest/gtest.h>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Kit/Archive.h"

namespace kelmar::kit {
namespace {

struct Form {
    const char* what;
    View view;
    const char* json;
};

std::vector<Form> textForms() {
    return {
        {"text with nothing unusual", Text{.text = "Hi", .font = Font::system(13)},
         R"({"type":"text","text":"Hi","font":{"size":13}})"},
        {"text with everything",
         Text{.text = "“x”",
              .font = Font::system(12.5, FontWeight::heavy).rounded().monospacedDigits(),
              .color = Color::rgb(0.31, 0.275, 0.898).withOpacity(0.5),
              .lineLimit = 2,
              .minimumScale = 0.8,
              .strikethrough = true},
         R"({"type":"text","text":"“x”","font":{"size":12.5,"weight":"heavy","design":"rounded",)"
         R"("monospacedDigits":true},"color":{"rgb":[0.31,0.275,0.898],"opacity":0.5},)"
         R"("lineLimit":2,"minimumScale":0.8,"strikethrough":true})"},
        {"caption", Text{.text = "", .font = Font::caption(), .color = secondary},
         R"({"type":"text","text":"","font":{"textStyle":"caption"},"color":{"style":"secondary"}})"},
        {"symbol", Symbol{.name = "circle", .font = Font::system(16), .color = primary},
         R"({"type":"symbol","name":"circle","font":{"size":16},"color":{"style":"primary"}})"},
    };
}

std::vector<Form> stackForms() {
    return {
        {"hstack",
         HStack{.alignment = VerticalAlignment::firstTextBaseline,
                .spacing = 6,
                .children = {Spacer{}, Spacer{.minLength = 2}}},
         R"({"type":"hstack","alignment":"firstTextBaseline","spacing":6,"children":[)"
         R"({"type":"spacer"},{"type":"spacer","minLength":2}]})"},
        {"vstack", VStack{.spacing = 0, .children = {}},
         R"({"type":"vstack","spacing":0,"children":[]})"},
        {"zstack",
         ZStack{.alignment = {HorizontalAlignment::trailing, VerticalAlignment::bottom},
                .children = {}},
         R"({"type":"zstack","alignment":"bottomTrailing","children":[]})"},
        {"spacer", Spacer{.minLength = 2}, R"({"type":"spacer","minLength":2})"},
    };
}

std::vector<Form> drawingForms() {
    return {
        {"filled shape",
         Shape{.shape = ShapeKind::roundedRectangle, .cornerRadius = 1.5, .fill = white},
         R"({"type":"shape","shape":"roundedRectangle","cornerRadius":1.5,)"
         R"("fill":{"style":"white"}})"},
        {"stroked shape", Shape{.shape = ShapeKind::circle, .stroke = tertiaryFill, .lineWidth = 2},
         R"({"type":"shape","shape":"circle","stroke":{"style":"tertiaryFill"},"lineWidth":2})"},
        {"countdown",
         Countdown{.from = system::Date::since1970(100),
                   .to = system::Date::since1970(160.5),
                   .font = Font::system(30),
                   .lineLimit = 1,
                   .minimumScale = 0.6},
         R"({"type":"countdown","from":100,"to":160.5,"font":{"size":30},)"
         R"("color":{"style":"primary"},"lineLimit":1,"minimumScale":0.6})"},
        {"still bar", Progress{.value = BarValue{0.25}, .tint = red},
         R"({"type":"progress","value":0.25,"tint":{"style":"red"}})"},
        {"live bar",
         Progress{.value = BarInterval{system::Date::since1970(1), system::Date::since1970(2)}},
         R"({"type":"progress","from":1,"to":2,"tint":{"style":"primary"}})"},
    };
}

std::vector<Form> modifierForms() {
    return {
        {"frame",
         Frame{.lengths = {.width = 3, .maxHeight = infinity},
               .alignment = {HorizontalAlignment::leading, VerticalAlignment::top},
               .child = Spacer{}},
         R"({"type":"frame","width":3,"maxHeight":"infinity","alignment":"topLeading",)"
         R"("child":{"type":"spacer"}})"},
        {"capped frame", Frame{.lengths = {.height = 4, .maxWidth = 9.5}, .child = Spacer{}},
         R"({"type":"frame","height":4,"maxWidth":9.5,"child":{"type":"spacer"}})"},
        {"padding", Padding{.insets = {.leading = 8, .trailing = 8}, .child = Spacer{}},
         R"({"type":"padding","leading":8,"trailing":8,"child":{"type":"spacer"}})"},
        {"fixed size", FixedSize{.vertical = true, .child = Spacer{}},
         R"({"type":"fixedSize","vertical":true,"child":{"type":"spacer"}})"},
        {"opacity", Opacity{.value = 0.45, .child = Spacer{}},
         R"({"type":"opacity","value":0.45,"child":{"type":"spacer"}})"},
        {"background", Background{.content = Shape{.fill = clear}, .child = Spacer{}},
         R"({"type":"background","content":{"type":"shape","shape":"rectangle",)"
         R"("fill":{"style":"clear"}},"child":{"type":"spacer"}})"},
        {"overlay", Overlay{.content = Spacer{}, .child = Spacer{}},
         R"({"type":"overlay","content":{"type":"spacer"},"child":{"type":"spacer"}})"},
        {"accessible", Accessible{.label = "Monday", .child = Spacer{}},
         R"({"type":"accessible","label":"Monday","child":{"type":"spacer"}})"},
    };
}

std::vector<Form> actionForms() {
    return {
        {"link", Link{.url = "kelmarplanner://stats", .child = Spacer{}},
         R"({"type":"link","url":"kelmarplanner://stats","child":{"type":"spacer"}})"},
        {"button",
         Button{.intent = {.name = "Go",
                           .parameters = {{"id", std::string("x")},
                                          {"run", true},
                                          {"minutes", std::int64_t{-5}}}},
                .label = "Go on",
                .child = Spacer{}},
         R"({"type":"button","intent":{"name":"Go","parameters":{"id":"x","run":true,)"
         R"("minutes":-5}},"label":"Go on","child":{"type":"spacer"}})"},
        {"toggle",
         Toggle{.isOn = true, .intent = {.name = "Flip", .parameters = {}}, .child = Spacer{}},
         R"({"type":"toggle","isOn":true,"intent":{"name":"Flip","parameters":{}},)"
         R"("child":{"type":"spacer"}})"},
    };
}

const std::vector<Form>& forms() {
    static const std::vector<Form> all = [] {
        std::vector<Form> joined;
        for (const std::vector<Form>& some :
             {textForms(), stackForms(), drawingForms(), modifierForms(), actionForms()}) {
            joined.insert(joined.end(), some.begin(), some.end());
        }
        return joined;
    }();
    return all;
}

TEST(Archive, EveryKindOfViewHasItsForm) {
    for (const Form& form : forms())
        EXPECT_EQ(encodeView(form.view), form.json) << form.what;
}

TEST(Archive, EveryFormReadsBackAsTheSameView) {
    for (const Form& form : forms()) {
        const auto decoded = decodeView(form.json);
        ASSERT_TRUE(decoded) << form.what << ": " << decoded.failure().reason;
        EXPECT_EQ(*decoded, form.view) << form.what;
    }
}

TEST(Archive, TheFormsCoverEveryKindOfView) {
    std::set<std::size_t> kinds;
    for (const Form& form : forms())
        kinds.insert(form.view.node.index());
    EXPECT_EQ(kinds.size(), std::variant_size_v<ViewNode>);
}

TEST(Archive, ADrawnEntryHasItsContentBackgroundAndUrl) {
    const DrawnEntry plain{.content = Spacer{}};
    EXPECT_EQ(encodeDrawnEntry(plain),
              R"({"content":{"type":"spacer"},"background":{"style":"tertiaryFill"}})");
    const DrawnEntry linked{
        .content = Spacer{}, .background = Color::rgb(1, 0, 0), .widgetUrl = "kelmarplanner://x"};
    EXPECT_EQ(encodeDrawnEntry(linked),
              R"({"content":{"type":"spacer"},"background":{"rgb":[1,0,0]},)"
              R"("widgetUrl":"kelmarplanner://x"})");
    EXPECT_EQ(*decodeDrawnEntry(encodeDrawnEntry(linked)), linked);
}

TEST(Archive, WhatIsWrongIsNamedWithItsPlace) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"({"type":"blink"})", "$.type: expected a known kind of view"},
        {R"({"kind":"text"})", "$: expected an object with \"type\""},
        {R"([])", "$: expected an object"},
        {R"({"type":"vstack","spacing":0,"children":[{"type":"spacer"},{"type":"text"}]})",
         "$.children[1]: expected an object with \"text\""},
        {R"({"type":"spacer","minLength":"2"})", "$.minLength: expected a number"},
        {R"({"type":"opacity","value":1,"child":{"type":"symbol","name":"circle","font":{"size":1},)"
         R"("color":{"rgb":[1,2]}}})",
         "$.child.color.rgb: expected three numbers"},
        {R"({"type":"hstack","alignment":"leading","spacing":0,"children":[]})",
         "$.alignment: expected another word"},
        {R"({"type":"frame","maxWidth":"wide","child":{"type":"spacer"}})",
         R"($.maxWidth: expected a number or "infinity")"},
        {R"({"type":"text","text":"x","font":{"size":9},"lineLimit":0})",
         "$.lineLimit: expected a number of lines"},
    };
    for (const auto& [json, reason] : cases) {
        const auto decoded = decodeView(json);
        ASSERT_FALSE(decoded) << json;
        EXPECT_EQ(decoded.failure().reason, reason) << json;
    }
}

TEST(Archive, NumbersThatAreNotFiniteAreRefused) {
    EXPECT_FALSE(decodeView(R"({"type":"spacer","minLength":1e999})"));
    EXPECT_FALSE(decodeView(R"({"type":"spacer","minLength":NaN})"));
}

/// `depth` views, each inside the one before.
std::string nested(int depth) {
    std::string json;
    for (int level = 1; level < depth; ++level)
        json += R"({"type":"opacity","value":1,"child":)";
    return json + R"({"type":"spacer"})" + std::string(static_cast<std::size_t>(depth - 1), '}');
}

TEST(Archive, ATreeMayBeAsDeepAsTheLimitAndNoDeeper) {
    EXPECT_TRUE(decodeView(nested(maximumDepth)));
    EXPECT_FALSE(decodeView(nested(maximumDepth + 1)));
    EXPECT_FALSE(decodeView(nested(100'000)));
}

/// A stack with `count` children.
std::string wide(int count) {
    std::string json = R"({"type":"vstack","spacing":0,"children":[)";
    for (int child = 0; child < count; ++child)
        json += child == 0 ? R"({"type":"spacer"})" : R"(,{"type":"spacer"})";
    return json + "]}";
}

TEST(Archive, ATreeMayBeAsLargeAsTheLimitAndNoLarger) {
    EXPECT_TRUE(decodeView(wide(maximumNodes - 1)));
    EXPECT_FALSE(decodeView(wide(maximumNodes)));
}

TEST(ForeignUrl, FindsAUrlOfAnotherSchemeWhereverItHides) {
    const auto entry = [](View view) { return DrawnEntry{.content = std::move(view)}; };
    const View foreign = Link{.url = "https://example.org/", .child = Spacer{}};
    EXPECT_EQ(foreignUrl(entry(foreign), "kelmarplanner"), "https://example.org/");
    EXPECT_EQ(foreignUrl(entry(HStack{.children = {Spacer{}, foreign}}), "kelmarplanner"),
              "https://example.org/");
    EXPECT_EQ(foreignUrl(entry(Background{.content = foreign, .child = Spacer{}}), "kelmarplanner"),
              "https://example.org/");
    EXPECT_EQ(
        foreignUrl(entry(Link{.url = "kelmarplanner://x", .child = foreign}), "kelmarplanner"),
        "https://example.org/");
    DrawnEntry linked = entry(Spacer{});
    linked.widgetUrl = "javascript:alert(1)";
    EXPECT_EQ(foreignUrl(linked, "kelmarplanner"), "javascript:alert(1)");
}

TEST(ForeignUrl, LeavesTheExtensionsOwnUrlsAlone) {
    const DrawnEntry entry{.content = Link{.url = "kelmarplanner://class/a%20b", .child = Spacer{}},
                           .widgetUrl = "KELMARPLANNER://stats"};
    EXPECT_EQ(foreignUrl(entry, "kelmarplanner"), std::nullopt);
}

}  // namespace
}  // namespace kelmar::kit
