// Contrôle d'un montant tapé, commun aux grilles de saisie.

#include "session/SaisieMontant.h"
#include "session/Session.h"

#include <QtTest>

class TestSaisieMontant : public QObject {
    Q_OBJECT
private slots:
    void montantLisible_data() {
        QTest::addColumn<QString>("texte");
        QTest::addColumn<bool>("lisible");
        QTest::newRow("virgule") << "12,5" << true;
        QTest::newRow("point") << "12.5" << true;
        QTest::newRow("blancs des milliers") << "1 234,56" << true;
        QTest::newRow("espace insécable") << QString("1\u00A0234,56") << true;
        QTest::newRow("signe moins") << "-12,5" << true;
        QTest::newRow("signe plus") << "+3" << true;
        QTest::newRow("décimales seules") << ",5" << true;
        QTest::newRow("symbole de la session") << "1 500,00 €" << true;
        QTest::newRow("autre symbole") << "1 500,00 $" << false;
        QTest::newRow("vide") << "" << false;
        QTest::newRow("lettres") << "abc" << false;
        QTest::newRow("lettre au bout") << "12a" << false;
        QTest::newRow("deux virgules") << "1,2,3" << false;
        QTest::newRow("virgule et point") << "1,2.3" << false;
        QTest::newRow("signe seul") << "-" << false;
        QTest::newRow("signe derrière") << "12-" << false;
        QTest::newRow("quinze chiffres") << "123456789012345" << true;
        QTest::newRow("seize chiffres") << "1234567890123456" << false;
    }
    void montantLisible() {
        QFETCH(QString, texte);
        QFETCH(bool, lisible);
        session().SymboleMonnaie = QStringLiteral("€");
        QCOMPARE(MontantLisible(texte), lisible);
    }
};

QTEST_GUILESS_MAIN(TestSaisieMontant)
#include "test_saisie_montant.moc"
