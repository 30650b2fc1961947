// What does making the widget take, skin and all, next to the same tree of Qt's own widgets?
// Not here: showing and painting it.
#include "benchmarks/figures.h"
#include "playwidget/playwidget.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

#include <cstdio>
#include <map>
#include <memory>

namespace {

constexpr int turns = 200;

using Maker = QWidget *(*)(QWidget *parent);

template <typename Widget> QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

QWidget *makeButtons(QWidget *parent)
{
    return new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, parent);
}

struct Node
{
    Maker maker;
    int parent;  ///< place in the list
    QRect geometry;
};

/// Qt's nearest to a class; what has none of the same purpose is a plain widget.
Maker makerOf(const QByteArray &className)
{
    static const std::map<QByteArray, Maker> makers
        = {{"ImageTracker", make<QSlider>}, {"IconButton", make<QToolButton>},
           {"QLabel", make<QLabel>},        {"QComboBox", make<QComboBox>},
           {"QSpinBox", make<QSpinBox>},    {"QSlider", make<QSlider>},
           {"QCheckBox", make<QCheckBox>},  {"QDialogButtonBox", makeButtons}};
    const auto found = makers.find(className);
    return found == makers.end() ? make<QWidget> : found->second;
}

/// What stands inside one of Qt's own controls it makes itself.
void list(const QWidget &widget, int parent, std::vector<Node> &nodes)
{
    const Maker maker = makerOf(widget.metaObject()->className());
    const int place = int(nodes.size());
    nodes.push_back({maker, parent, widget.geometry()});
    if (maker != make<QWidget>)
        return;
    for (QObject *child : widget.children()) {
        auto *const part = qobject_cast<QWidget *>(child);
        if (part && !part->isWindow())
            list(*part, place, nodes);
    }
}

std::unique_ptr<QWidget> makePlain(const std::vector<Node> &nodes)
{
    std::vector<QWidget *> made;
    for (const Node &node : nodes) {
        made.push_back(node.maker(node.parent < 0 ? nullptr : made[std::size_t(node.parent)]));
        made.back()->setGeometry(node.geometry);
    }
    return std::unique_ptr<QWidget>(made.front());
}

/// Microseconds; what is made goes before the next is timed.
template <typename Make> double timeOf(Make make)
{
    QElapsedTimer time;
    time.start();
    const auto made = make();
    return double(time.nsecsElapsed()) / 1e3;
}

}  // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::vector<Node> nodes;
    list(PlayWidget(), -1, nodes);
    std::vector<double> ours, plain;
    for (int turn = 0; turn < turns; ++turn) {
        ours.push_back(timeOf([] { return std::make_unique<PlayWidget>(); }));
        plain.push_back(timeOf([&] { return makePlain(nodes); }));
    }
    std::printf("making %zu widgets, medians of %d, microseconds\n\n", nodes.size(), turns);
    std::printf("PlayWidget, skinned%12.0f\nQt's own widgets   %12.0f\nratio%26.2f\n", median(ours),
                median(plain), median(ours) / median(plain));
}
