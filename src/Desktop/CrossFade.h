#pragma once

#include <QImage>
#include <QObject>
#include <QTimer>

namespace kelmar::desktop {

/// A widget's former picture while it gives way to the next one: a fifth of a second in a few
/// frames. Nothing is left of it then, neither the picture nor a timer.
class CrossFade final : public QObject {
    Q_OBJECT

public:
    CrossFade();

    /// In place of one that is running. Some of the new picture is to be seen at once, so that
    /// whoever has pressed something sees that it was felt.
    void begin(QImage former);
    void end();

    [[nodiscard]] bool isRunning() const { return !former_.isNull(); }
    /// Null when it is over.
    [[nodiscard]] const QImage& former() const { return former_; }
    /// How much of the former picture is to be seen still, from 1 down to 0.
    [[nodiscard]] double remaining() const;

signals:
    /// Time for the next frame, the last of which has nothing of the former picture.
    void advanced();

private:
    void advance();

    QImage former_;
    int frame_ = 0;
    QTimer timer_;
};

}  // namespace kelmar::desktop
