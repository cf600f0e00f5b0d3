// Champ de date masqué : "__/__/____" quand il est vide.
#include "support/PiloteModal.h"
#include "ui/ChampDate.h"

#include <QLineEdit>
#include <QtTest>

using namespace ui;

class TestChampDate : public QObject {
    Q_OBJECT
private slots:
    void champVideMontreLeMasque() {
        QLineEdit champ;
        PreparerChampDate(&champ);
        QCOMPARE(champ.inputMask(), QString("99/99/9999;_"));
        QCOMPARE(champ.displayText(), QString("__/__/____"));
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
        QCOMPARE(DateVide(), QString("__/__/____"));
    }

    void dateTapeeChiffreParChiffre() {
        QLineEdit champ;
        PreparerChampDate(&champ);
        champ.setFocus();
        champ.setCursorPosition(0);
        support::TaperCaracteres(&champ, "12032024");
        QCOMPARE(TexteDate(&champ), QString("12/03/2024"));
    }

    void dateIncompleteGardeSesBlancs() {
        QLineEdit champ;
        PreparerChampDate(&champ);
        champ.setCursorPosition(0);
        support::TaperCaracteres(&champ, "310");
        QCOMPARE(TexteDate(&champ), QString("31/0_/____"));
        QVERIFY(!champ.hasAcceptableInput());
    }

    void lettresRefuseesParLeMasque() {
        QLineEdit champ;
        PreparerChampDate(&champ);
        champ.setCursorPosition(0);
        support::TaperCaracteres(&champ, "ab/é");
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
    }

    void fixerEtViderLaDate() {
        QLineEdit champ;
        PreparerChampDate(&champ);
        FixerTexteDate(&champ, "01/01/2025");
        QCOMPARE(TexteDate(&champ), QString("01/01/2025"));
        FixerTexteDate(&champ, "__/__/____");
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
        FixerTexteDate(&champ, "28/02/2023");
        FixerTexteDate(&champ, QString());
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
    }

    void preparerVideUnChampDejaRempli() {
        QLineEdit champ;
        champ.setText("n'importe quoi");
        PreparerChampDate(&champ);
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
    }

    void champSansMasqueOuAbsent() {
        QLineEdit champ;
        QCOMPARE(TexteDate(&champ), QString("__/__/____"));
        QCOMPARE(TexteDate(nullptr), QString("__/__/____"));
        PreparerChampDate(nullptr);
        FixerTexteDate(nullptr, "01/01/2025");
    }
};

QTEST_MAIN(TestChampDate)
#include "test_ui_champdate.moc"
