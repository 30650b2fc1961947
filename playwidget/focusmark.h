// FocusMark: a frame around a control that has the focus.
// Not here: which control is marked, and when (keyboardnavigation.h).
#pragma once

#include <QFocusFrame>

/// Lies over what is next to the control, follows it, and takes no mouse. Painted in the highlight
/// colour between two white lines, so that it stands out on the dark bar, on any film and on a light
/// or dark desktop. Being a QFocusFrame, assistive technology does not see it.
class FocusMark : public QFocusFrame
{
    Q_OBJECT

public:
    /// Becomes a child of the control's parent, which it must have, or of one further out where that
    /// has no room, and is shown at once.
    explicit FocusMark(QWidget *control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    QWidget *m_control;
};
