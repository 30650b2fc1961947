// The entries of Qt Designer's box: a table of what Designer wants to know of each widget.
// Not here: their pictures (designer.qrc).
#include "designer/widgetcollection.h"

#include "controls/iconbutton.h"
#include "controls/imagetracker.h"
#include "playwidget/playwidget.h"

#include <QIcon>

namespace {

struct Row
{
    const char *className;
    const char *header;
    const char *whatItIs;
    QSize size;  // with which it comes onto a form
    QWidget *(*create)(QWidget *parent);
};

QWidget *createPlayWidget(QWidget *parent)
{
    return new PlayWidget(parent);
}

// The two controls show nothing until they have images; on a form they get those of the player.

QWidget *createImageTracker(QWidget *parent)
{
    auto *tracker = new ImageTracker(parent);
    tracker->setSkin(QStringLiteral(":/skin/playslider.png"));
    return tracker;
}

QWidget *createIconButton(QWidget *parent)
{
    auto *button = new IconButton(parent);
    button->setIcon(QIcon(QStringLiteral(":/skin/play.png")));
    return button;
}

const Row rows[] = {
    {"PlayWidget", "playwidget/playwidget.h", "Preview player with 3D settings for films",
     QSize(702, 585), createPlayWidget},
    {"ImageTracker", "controls/imagetracker.h", "Slider drawn from images", QSize(200, 20),
     createImageTracker},
    {"IconButton", "controls/iconbutton.h", "Tool button that is nothing but its icon",
     QSize(32, 32), createIconButton},
};

class Entry : public QDesignerCustomWidgetInterface
{
public:
    explicit Entry(const Row &row)
        : m_row(row)
    { }

    QString name() const override { return QString::fromLatin1(m_row.className); }
    QString group() const override { return QStringLiteral("PlayWidget"); }
    QString toolTip() const override { return QString::fromLatin1(m_row.whatItIs); }
    QString whatsThis() const override { return toolTip(); }
    QString includeFile() const override { return QString::fromLatin1(m_row.header); }
    QIcon icon() const override
    {
        return QIcon(QStringLiteral(":/playwidget-designer/%1.png").arg(name().toLower()));
    }
    bool isContainer() const override { return false; }
    QWidget *createWidget(QWidget *parent) override { return m_row.create(parent); }
    QString domXml() const override;

private:
    const Row &m_row;
};

QString Entry::domXml() const
{
    QString objectName = name();
    objectName[0] = objectName[0].toLower();
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                          "<width>%3</width><height>%4</height></rect></property></widget></ui>")
        .arg(name(), objectName)
        .arg(m_row.size.width())
        .arg(m_row.size.height());
}

}  // namespace

WidgetCollection::WidgetCollection()
{
    for (const Row &row : rows)
        m_entries.push_back(std::make_unique<Entry>(row));
}

WidgetCollection::~WidgetCollection() = default;

QList<QDesignerCustomWidgetInterface *> WidgetCollection::customWidgets() const
{
    QList<QDesignerCustomWidgetInterface *> entries;
    for (const auto &entry : m_entries)
        entries.append(entry.get());
    return entries;
}
