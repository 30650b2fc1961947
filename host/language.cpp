// Finding and installing translations.
// Not here: the player's replaceable texts (playertexts.cpp).
#include "host/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

const QString ourTexts = QStringLiteral(":/translations");
const QString ourPrefix = QStringLiteral("playwidget-preview_");

QString qtTexts()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

void install(const QString &name, const QString &folder)
{
    auto *translator = new QTranslator(QCoreApplication::instance());
    if (translator->load(name, folder))
        QCoreApplication::installTranslator(translator);
}

}  // namespace

QStringList languages()
{
    QStringList codes = {QStringLiteral("en")};
    const QStringList files = QDir(ourTexts).entryList({ourPrefix + QStringLiteral("*.qm")});
    for (const QString &file : files)
        codes << file.mid(ourPrefix.size()).section(QLatin1Char('.'), 0, 0);
    return codes;
}

bool installLanguage(const QString &code)
{
    const QString name = code.isEmpty() ? QLocale::system().name() : code;
    const QString language = name.section(QLatin1Char('_'), 0, 0);
    if (!languages().contains(language))
        return code.isEmpty();
    install(QStringLiteral("qtbase_") + language, qtTexts());
    install(ourPrefix + language, ourTexts);
    return true;
}
