// Fin du programme, erreur d'exécution et horloge.
#include "support/DossierEssai.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QDialog>
#include <QTimer>
#include <QtTest>
#include <stdexcept>

using namespace ui;

class Lanceur : public QObject {
    Q_OBJECT
public slots:
    void Lancer() { throw std::out_of_range("Indice en dehors de la plage"); }
    void LancerVoulue() {
        LeverErreurExecution(QStringLiteral("L'indice n'appartient pas à la sélection."));
    }
};

class TestFin : public QObject {
    Q_OBJECT
private slots:
    void init() {
        support::RemettreServicesAZero();
        FixerFermetureBase({});
    }

    void terminerEnEssaiFermeLaBaseEtLanceFinProgramme() {
        int fermetures = 0;
        FixerFermetureBase([&] { ++fermetures; });
        QVERIFY(!FinDemandee());
        bool lancee = false;
        try {
            TerminerProgramme(3);
        } catch (const FinProgramme& f) {
            lancee = true;
            QCOMPARE(f.code, 3);
        }
        QVERIFY(lancee);
        QVERIFY(FinDemandee());
        QCOMPARE(CodeFin(), 3);
        QCOMPARE(fermetures, 1);
        ObserverFin(true);
        QVERIFY(!FinDemandee());
    }

    void fermetureQuiEchoueNEmpechePasLaFin() {
        FixerFermetureBase([] { throw std::runtime_error("base déjà fermée"); });
        QVERIFY_THROWS_EXCEPTION(FinProgramme, TerminerProgramme(0));
        QVERIFY(FinDemandee());
    }

    void terminerFermeLesFenetresModalesDuHautVersLeBas() {
        QDialog a, b;
        a.setObjectName("A");
        b.setObjectName("B");
        QStringList fermees;
        connect(&a, &QDialog::finished, [&] { fermees << "A"; });
        connect(&b, &QDialog::finished, [&] { fermees << "B"; });
        QTimer::singleShot(0, &a, [&] { b.exec(); });
        QTimer::singleShot(50, &b, [] {
            try {
                TerminerProgramme(0);
            } catch (const FinProgramme&) {
            }
        });
        a.exec();
        QCOMPARE(fermees, QStringList({"B", "A"}));
        QVERIFY(FinDemandee());
    }

    void exceptionDansUnEvenementMontreErreurExecutionPuisTermine() {
        int fermetures = 0;
        FixerFermetureBase([&] { ++fermetures; });
        RepondreBoite(Reponse::OK);
        Lanceur lanceur;
        QMetaObject::invokeMethod(&lanceur, "Lancer", Qt::QueuedConnection);
        QTRY_VERIFY_WITH_TIMEOUT(FinDemandee(), 2000);
        QCOMPARE(CodeFin(), 1);
        QCOMPARE(fermetures, 1);
        QCOMPARE(JournalBoites().size(), 1);
        QCOMPARE(JournalBoites()[0].titre, QString("Erreur d'exécution"));
        QCOMPARE(JournalBoites()[0].texte, QString("Indice en dehors de la plage"));
        QCOMPARE(JournalBoites()[0].icone, Icone::Critique);
    }

    void erreurExecutionVoulueDonneSaDescription() {
        RepondreBoite(Reponse::OK);
        Lanceur lanceur;
        QMetaObject::invokeMethod(&lanceur, "LancerVoulue", Qt::QueuedConnection);
        QTRY_VERIFY_WITH_TIMEOUT(FinDemandee(), 2000);
        QCOMPARE(JournalBoites().last().texte,
                 QString("L'indice n'appartient pas à la sélection."));
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, LeverErreurExecution("x"));
    }

    void finProgrammeDansUnEvenementEstAvaleeSansBoite() {
        Lanceur lanceur;
        QTimer::singleShot(0, &lanceur, [] { TerminerProgramme(0); });
        QTRY_VERIFY_WITH_TIMEOUT(FinDemandee(), 2000);
        QVERIFY(JournalBoites().isEmpty());
        QCOMPARE(CodeFin(), 0);
    }

    void horlogeFigeepuisRendueAuTempsReel() {
        const QDateTime fixe(QDate(2024, 2, 29), QTime(23, 59, 30));
        FixerHorloge(fixe);
        QCOMPARE(Maintenant(), fixe);
        QCOMPARE(Aujourdhui(), QDate(2024, 2, 29));
        FixerHorloge(QDateTime());
        QVERIFY(qAbs(Maintenant().secsTo(QDateTime::currentDateTime())) < 5);
        QCOMPARE(Aujourdhui(), QDate::currentDate());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestFin test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_ui_fin.moc"
