// FilterStore: drafts are kept or dropped, whatever their values.
// Not here: who may set what when (tst_kest_calls.cpp).
#include "engine/mpv/filterstore.h"

#include <QtTest>

#include <cmath>
#include <limits>

class tst_FilterStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsNothingAtFirst()
    {
        FilterStore store;
        QVERIFY(!store.kept(1));
        QVERIFY(!store.draft());
        store.begin(1);
        QVERIFY(!store.draft());
        store.end(true);
        QVERIFY(!store.kept(1));
    }

    void savingKeepsTheDraft()
    {
        FilterStore store;
        store.begin(1);
        store.setDraft({4, 0.12});
        QVERIFY(!store.kept(1));
        store.end(true);
        QVERIFY(!store.draft());
        QCOMPARE(store.kept(1)->mode, 4);
        QCOMPARE(store.kept(1)->depth, 0.12);
        QVERIFY(!store.kept(2));
    }

    void notSavingDropsTheDraft()
    {
        FilterStore store;
        store.setKept(1, {4, 0.12});
        store.begin(1);
        QCOMPARE(store.draft()->mode, 4);
        store.setDraft({8, 0.3});
        QCOMPARE(store.draft()->mode, 8);
        store.end(false);
        QCOMPARE(store.kept(1)->mode, 4);
    }

    void aKeptSettingReachesTheDraftOfItsFileOnly()
    {
        FilterStore store;
        store.begin(1);
        store.setKept(2, {6, 0.1});
        QVERIFY(!store.draft());
        store.setKept(1, {9, 0.2});
        QCOMPARE(store.draft()->mode, 9);
        store.end(false);
        QCOMPARE(store.kept(1)->mode, 9);
        QCOMPARE(store.kept(2)->mode, 6);
    }

    void aRemovedFileLosesWhatWasKeptAndTheDraftItsFile()
    {
        FilterStore store;
        store.setKept(1, {4, 0.12});
        store.begin(1);
        QVERIFY(store.hasDraftFor(1));
        store.remove(1);
        QVERIFY(!store.kept(1));
        QVERIFY(!store.hasDraftFor(1));
        QCOMPARE(store.draft()->mode, 4);
        store.setKept(1, {9, 0.2});
        QCOMPARE(store.draft()->mode, 4);
        store.end(true);
        QCOMPARE(store.kept(1)->mode, 9);
    }

    void aDraftNeedsABeginning()
    {
        FilterStore store;
        store.setDraft({4, 0.12});
        QVERIFY(!store.draft());
        store.end(true);
        QVERIFY(!store.kept(0));
    }

    void valuesAreStoredAsGiven()
    {
        FilterStore store;
        store.setKept(1, {-77, std::nan("")});
        QCOMPARE(store.kept(1)->mode, -77);
        QVERIFY(std::isnan(store.kept(1)->depth));
        store.setKept(1, {1000, -std::numeric_limits<double>::infinity()});
        QCOMPARE(store.kept(1)->depth, -std::numeric_limits<double>::infinity());
    }
};

QTEST_GUILESS_MAIN(tst_FilterStore)
#include "tst_filterstore.moc"
