#include "Desktop/WidgetMenu.h"

#include <QActionGroup>
#include <QMenu>
#include <algorithm>

#include "Desktop/MenuText.h"
#include "System/Fatal.h"

namespace kelmar::desktop {

namespace {

std::string_view wordFor(kit::Family family) {
    switch (family) {
        case kit::Family::small:
            return "Small";
        case kit::Family::medium:
            return "Medium";
        case kit::Family::large:
            return "Large";
    }
    system::fatal("a widget family beyond the enumeration");
}

std::string_view wordFor(kit::RenderingMode mode) {
    switch (mode) {
        case kit::RenderingMode::fullColor:
            return "Full colour";
        case kit::RenderingMode::accented:
            return "Accented";
        case kit::RenderingMode::vibrant:
            return "Vibrant";
    }
    system::fatal("a rendering mode beyond the enumeration");
}

/// Builds the parts of the menu; texts are escaped, since "&" marks a shortcut there.
class MenuFiller {
public:
    MenuFiller(const MenuState& state, const MenuActions& actions,
               const system::Localization& texts)
        : state_(state), actions_(actions), texts_(texts) {}

    void addSizes(QMenu& menu) const {
        const auto widget =
            std::find_if(state_.bundle.widgets.begin(), state_.bundle.widgets.end(),
                         [this](const auto& offered) { return offered.kind == state_.kind; });
        if (widget == state_.bundle.widgets.end()) {
            return;
        }
        auto* choice = new QActionGroup(&menu);
        for (const kit::Family family : widget->families) {
            QAction* action =
                menu.addAction(word(wordFor(family)), &menu,
                               [resize = actions_.resize, family] { resize(family); });
            addToChoice(*choice, *action, family == state_.family);
        }
        menu.addSeparator();
    }

    void addWidgets(QMenu& menu) const {
        QMenu* add = menu.addMenu(word("Add widget"));
        for (const kit::WidgetDescriptor& widget : state_.bundle.widgets) {
            QMenu* sizes = add->addMenu(escaped(widget.displayName));
            for (const kit::Family family : widget.families) {
                sizes->addAction(
                    word(wordFor(family)), sizes,
                    [add = actions_.add, kind = widget.kind, family] { add(kind, family); });
            }
        }
        add->setEnabled(!add->isEmpty());
    }

    void addRenderingModes(QMenu& menu) const {
        QMenu* modes = menu.addMenu(word("Rendering"));
        auto* choice = new QActionGroup(modes);
        for (const kit::RenderingMode mode : kit::renderingModes) {
            QAction* action = modes->addAction(
                word(wordFor(mode)), modes, [set = actions_.setRenderingMode, mode] { set(mode); });
            addToChoice(*choice, *action, mode == state_.renderingMode);
        }
    }

    [[nodiscard]] QString word(std::string_view englishKey) const {
        return escaped(texts_.text(englishKey));
    }

private:
    static QString escaped(const std::string& text) {
        return escapedForMenu(QString::fromStdString(text));
    }

    static void addToChoice(QActionGroup& choice, QAction& action, bool isChosen) {
        choice.addAction(&action);
        action.setCheckable(true);
        action.setChecked(isChosen);
    }

    const MenuState& state_;
    const MenuActions& actions_;
    const system::Localization& texts_;
};

}  // namespace

void fillWidgetMenu(QMenu& menu, const MenuState& state, const MenuActions& actions,
                    const system::Localization& texts) {
    const MenuFiller filler(state, actions, texts);
    filler.addSizes(menu);
    menu.addAction(filler.word("Remove widget"), &menu, actions.remove);
    filler.addWidgets(menu);
    filler.addRenderingModes(menu);
    menu.addSeparator();
    menu.addAction(filler.word("Quit"), &menu, actions.quit);
}

}  // namespace kelmar::desktop
