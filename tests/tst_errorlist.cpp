// ErrorList: the exact wording of each line, and their order.
// Not here: what is recorded when (tst_transport.cpp, tst_filter3d.cpp, tst_panel3d.cpp).
#include "playwidget/errorlist.h"

#include <QTest>

#include <limits>
#include <type_traits>

static_assert(std::is_base_of_v<QStringList, ErrorList>, "hosts' code reads it as strings");

class tst_ErrorList : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyAtFirst();
    void keepsATextAsItIs_data();
    void keepsATextAsItIs();
    void wordsAFailedFunction();
    void wordsACodeAsASignedDecimalNumber_data();
    void wordsACodeAsASignedDecimalNumber();
    void fillsInTheNameBeforeTheCode();
    void wordsAMissingFile();
    void keepsTheOrderAndRepeats();
};

void tst_ErrorList::isEmptyAtFirst()
{
    QCOMPARE(ErrorList().size(), 0);
}

void tst_ErrorList::keepsATextAsItIs_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a sentence") << "The disk is full.";
    QTest::newRow("nothing") << "";
    QTest::newRow("placeholders") << "100 %1 %2 %%";
    QTest::newRow("line ends") << "one\r\ntwo\n";
}

void tst_ErrorList::keepsATextAsItIs()
{
    QFETCH(QString, text);
    ErrorList errors;
    errors.addError(text);
    QCOMPARE(errors, QStringList{text});
}

void tst_ErrorList::wordsAFailedFunction()
{
    ErrorList errors;
    errors.addFunctionError("KestPlay");
    errors.addFunctionError("");
    QCOMPARE(errors, QStringList({"ERROR: KestPlay function failed.", "ERROR:  function failed."}));
}

void tst_ErrorList::wordsACodeAsASignedDecimalNumber_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("line");
    const auto row
        = [](int code, const char *line) { QTest::addRow("%d", code) << code << QString(line); };
    row(5, "ERROR: KestPause function failed. [Code: 5]");
    row(-3, "ERROR: KestPause function failed. [Code: -3]");
    row(0, "ERROR: KestPause function failed. [Code: 0]");
    row(1234567, "ERROR: KestPause function failed. [Code: 1234567]");
    row(std::numeric_limits<int>::max(), "ERROR: KestPause function failed. [Code: 2147483647]");
    row(std::numeric_limits<int>::min(), "ERROR: KestPause function failed. [Code: -2147483648]");
}

void tst_ErrorList::wordsACodeAsASignedDecimalNumber()
{
    QFETCH(int, code);
    QFETCH(QString, line);
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));  // would group the thousands
    ErrorList errors;
    errors.addFunctionErrorWithCode("KestPause", code);
    QLocale::setDefault(before);
    QCOMPARE(errors, QStringList{line});
}

// So a name that looks like a placeholder takes the code.
void tst_ErrorList::fillsInTheNameBeforeTheCode()
{
    ErrorList errors;
    errors.addFunctionErrorWithCode("%2", 5);
    errors.addFunctionErrorWithCode("%1", 5);
    QCOMPARE(errors,
             QStringList(
                 {"ERROR: 5 function failed. [Code: 5]", "ERROR: 5 function failed. [Code: %2]"}));
}

void tst_ErrorList::wordsAMissingFile()
{
    ErrorList errors;
    errors.addFileNotExistsError("C:\\skin\\a b.png");
    QCOMPARE(errors,
             QStringList{
                 "ERROR: The file 'C:\\skin\\a b.png' does not exits, please reinstall program."});
}

void tst_ErrorList::keepsTheOrderAndRepeats()
{
    ErrorList errors;
    errors.addFunctionErrorWithCode("KestPlay", 1);
    errors.addError("KestPlay");
    errors.addFunctionErrorWithCode("KestPlay", 1);
    QCOMPARE(errors,
             QStringList({"ERROR: KestPlay function failed. [Code: 1]", "KestPlay",
                          "ERROR: KestPlay function failed. [Code: 1]"}));
}

QTEST_APPLESS_MAIN(tst_ErrorList)
#include "tst_errorlist.moc"
