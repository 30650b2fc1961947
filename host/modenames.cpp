// The table of names and words.
// Not here: anything else.
#include "host/modenames.h"

#include <QCoreApplication>

namespace {

constexpr struct
{
    tagKest3DMode mode;
    const char *name;
    const char *label;
} rows[] = {
    {Kest3DTurnOff, "off", QT_TRANSLATE_NOOP("Modes", "3D off")},
    {Kest3DRedCyan, "red-cyan", QT_TRANSLATE_NOOP("Modes", "Red/Cyan")},
    {Kest3DRedGreen, "red-green", QT_TRANSLATE_NOOP("Modes", "Red/Green")},
    {Kest3DRedBlue, "red-blue", QT_TRANSLATE_NOOP("Modes", "Red/Blue")},
    {Kest3DBlueYellow, "blue-yellow", QT_TRANSLATE_NOOP("Modes", "Blue/Yellow")},
    {Kest3DInterleaved, "interleaved", QT_TRANSLATE_NOOP("Modes", "Interleaved")},
    {Kest3DSlideBySlide, "side-by-side", QT_TRANSLATE_NOOP("Modes", "Side by Side")},
};

}  // namespace

QStringList modeNames()
{
    QStringList names;
    for (const auto &row : rows)
        names << QLatin1String(row.name);
    return names;
}

QString modeName(int mode)
{
    for (const auto &row : rows) {
        if (row.mode == mode)
            return QLatin1String(row.name);
    }
    return QString::number(mode);
}

bool modeFromName(const QString &name, tagKest3DMode &mode)
{
    for (const auto &row : rows) {
        if (name == QLatin1String(row.name)) {
            mode = row.mode;
            return true;
        }
    }
    return false;
}

QString modeLabel(int mode)
{
    for (const auto &row : rows) {
        if (row.mode == mode)
            return QCoreApplication::translate("Modes", row.label);
    }
    return modeName(mode);
}
