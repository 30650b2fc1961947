// WidgetCollection: what Qt Designer finds in the plugin, one entry for each widget of ours.
// Not here: the widgets; Designer makes the real ones, which play nothing without an engine.
#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <memory>
#include <vector>

class WidgetCollection : public QObject, public QDesignerCustomWidgetCollectionInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QDesignerCustomWidgetCollectionInterface_iid)
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    WidgetCollection();
    ~WidgetCollection() override;

    /// The entries stay the plugin's.
    QList<QDesignerCustomWidgetInterface *> customWidgets() const override;

private:
    std::vector<std::unique_ptr<QDesignerCustomWidgetInterface>> m_entries;
};
