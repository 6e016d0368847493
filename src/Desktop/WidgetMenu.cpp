#include "Desktop/WidgetMenu.h"

#include <QActionGroup>
#include <QMenu>
#include <algorithm>

#include "Desktop/MenuText.h"
#include "Desktop/WidgetWords.h"

namespace kelmar::desktop {

namespace {

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
        QActionGroup& choice = addChoice(menu);
        for (const kit::Family family : widget->families) {
            QAction* action =
                menu.addAction(word(wordFor(family)), &menu,
                               [resize = actions_.resize, family] { resize(family); });
            addToChoice(choice, *action, family == state_.family);
            action->setEnabled(isOpen());
        }
        menu.addSeparator();
    }

    void addRemoval(QMenu& menu) const {
        QAction* remove = menu.addAction(word("Remove widget"), &menu, actions_.remove);
        remove->setEnabled(isOpen());
        if (actions_.undoRemoval) {
            menu.addAction(word("Undo removal"), &menu, actions_.undoRemoval);
        }
    }

    void addLock(QMenu& menu) const {
        QAction* lock = menu.addAction(
            word("Lock arrangement"), &menu, [set = actions_.setLock, isOpen = isOpen()] {
                set(isOpen ? ArrangementLock::locked : ArrangementLock::open);
            });
        lock->setCheckable(true);
        lock->setChecked(!isOpen());
    }

    void addRenderingModes(QMenu& menu) const {
        QMenu* modes = menu.addMenu(word("Rendering"));
        QActionGroup& choice = addChoice(*modes);
        for (const kit::RenderingMode mode : kit::renderingModes) {
            QAction* action = modes->addAction(
                word(wordFor(mode)), modes, [set = actions_.setRenderingMode, mode] { set(mode); });
            addToChoice(choice, *action, mode == state_.renderingMode);
        }
    }

    [[nodiscard]] QString word(std::string_view englishKey) const {
        return escaped(texts_.text(englishKey));
    }

private:
    [[nodiscard]] bool isOpen() const { return state_.lock == ArrangementLock::open; }

    static QString escaped(const std::string& text) {
        return escapedForMenu(QString::fromStdString(text));
    }

    /// Of its entries one is chosen at a time. It goes with the menu.
    static QActionGroup& addChoice(QMenu& menu) {
        auto* choice = new QActionGroup(&menu);
        choice->setExclusionPolicy(QActionGroup::ExclusionPolicy::Exclusive);
        return *choice;
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
    filler.addRemoval(menu);
    menu.addAction(filler.word("Add widgets…"), &menu, actions.showGallery);
    menu.addSeparator();
    filler.addLock(menu);
    filler.addRenderingModes(menu);
    menu.addSeparator();
    menu.addAction(filler.word("Quit"), &menu, actions.quit);
}

}  // namespace kelmar::desktop
