// IconButton: a tool button that is nothing but its icon.
// Not here: the icons; the owner sets one with a pixmap for each mode.
#pragma once

#include "controls/controls_global.h"

#include <QToolButton>

/// Behaves as QToolButton in everything but its painting: the icon is centred in the whole button,
/// without frame, background, menu arrow or focus rectangle. Its mode is QIcon::Disabled while the
/// button is disabled, else Selected while it is pressed or checked, else Active while the pointer
/// is over it, else Normal; its state is always QIcon::Off. The icon size is not used: a pixmap
/// larger than the button is scaled down, a smaller one keeps its size.
///
/// With any tool-button style but Qt::ToolButtonIconOnly the text is drawn centred over the icon.
/// A button without an icon paints nothing, or only its text.
///
/// GUI thread only.
class CONTROLS_EXPORT IconButton : public QToolButton
{
    Q_OBJECT

public:
    /// A QToolButton as Qt makes it; nothing is changed.
    explicit IconButton(QWidget *parent = nullptr);
    ~IconButton() override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
