// Rendering a whole frame and taking the views out of it.
// Not here: libmpv (rendercontext.cpp).
#include "engine/mpv/renderviews.h"

#include <QTransform>

Frame renderViews(RenderContext &context, QSize size, const PictureShape &shape)
{
    const QSize view = shape.rotation % 180 ? size.transposed() : size;
    Eyes eyes = eyesOf(context.render(frameSize(view, shape.layout)), shape.stored, shape.layout);
    if (shape.rotation) {
        const auto turn = QTransform().rotate(shape.rotation);
        eyes = {eyes.left.transformed(turn), eyes.right.transformed(turn)};
    }
    return {eyes.left, 0, 0, eyes.right};
}
