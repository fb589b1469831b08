#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

namespace xe {

/// Keeps Qt's animations alive while a modal dialog or menu runs in the handler of a resize. Made where such a loop
/// begins.
///
/// Qt lays out a main window by animations, also where nothing slides, and an animation sets the size of the part that
/// it moves while it starts. A handler of that size may open a dialog, as one that ends an edit and has to refuse the
/// text. When the main window gets another size meanwhile, Qt stops the animation and has the dialog's event loop
/// delete it, and the first layout would go on with what is gone.
class AnimationKeeper : public QObject
{
public:
    /// Does nothing outside the handler of a resize.
    AnimationKeeper();
    /// The animations go with the next turn of the event loop.
    ~AnimationKeeper() override;

    bool eventFilter(QObject* target, QEvent* event) override;

private:
    std::vector<QPointer<QObject>> m_kept;
};

} // namespace xe
