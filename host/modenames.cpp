// The table of names.
// Not here: anything else.
#include "host/modenames.h"

namespace {

constexpr struct
{
    tagKest3DMode mode;
    const char *name;
} rows[] = {
    {Kest3DTurnOff, "off"},
    {Kest3DRedCyan, "red-cyan"},
    {Kest3DRedGreen, "red-green"},
    {Kest3DRedBlue, "red-blue"},
    {Kest3DBlueYellow, "blue-yellow"},
    {Kest3DInterleaved, "interleaved"},
    {Kest3DSlideBySlide, "side-by-side"},
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
