#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "Desktop/Corners.h"
#include "Desktop/Look.h"
#include "Desktop/Stacking.h"

namespace kelmar::desktop {

/// Stands for ten seconds where a widget was removed and offers to bring it back. Lies on the
/// desktop as the widget did and takes the keyboard only when it is given it. It waits while the
/// pointer or the keyboard is on it.
class UndoBar final : public QWidget {
    Q_OBJECT

public:
    /// What it says, in the user's language.
    struct Words {
        QString message;
        QString undo;
    };

    UndoBar(const Words& words, const Look& look, Corners corners, Stacking stacking);

    /// In the middle of `place`, as far as that leaves a gap to the edges of `visible`.
    void present(const QRect& place, const QRect& visible);

signals:
    void undoRequested();
    /// Nobody wanted it: the time is over, or the user sent it away.
    void expired();

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void takeLook();
    void takePlace();
    void waitOrExpire();

    const Look& look_;
    Corners corners_;
    Stacking stacking_;
    QLabel* message_;
    QPushButton* undo_;
    QTimer expiry_{this};
    QRect place_;  ///< Null before it is presented.
    QRect visible_;
};

}  // namespace kelmar::desktop
