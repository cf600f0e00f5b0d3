// Fin du programme, erreur d'exécution et horloge.
#include "EcransEssai.h"
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"
#include "support/ProcessusFils.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"

#include <QDialog>
#include <QTimer>
#include <QtTest>
#include <cstdio>
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

    void erreurExecutionAvecLaVraieBoiteCliquee() {
        support::PiloteModal pilote;
        QString titre;
        pilote.AttendreBoite("Indice en dehors de la plage", [&](QWidget* boite) {
            titre = boite->windowTitle();
            support::CliquerBouton(boite, "OK");
        });
        pilote.Demarrer();
        Lanceur lanceur;
        QMetaObject::invokeMethod(&lanceur, "Lancer", Qt::QueuedConnection);
        QTRY_VERIFY_WITH_TIMEOUT(FinDemandee(), 3000);
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(titre, QString("Erreur d'exécution"));
        QCOMPARE(JournalBoites().size(), 1);
    }

    // Quitter depuis un écran de la chaîne : les écrans cachés dessous se ferment aussi.
    void terminerDepuisUneChaineDEcransFermeTout() {
        QStringList fermetures;
        EcranEssai a("Choisais", &fermetures);
        a.FixerDebutChaine(true);
        a.ouvrirSuite = [&](EcranEssai* p) {
            EcranEssai b("Saislog", &fermetures, p);
            b.ouvrirSuite = [](EcranEssai*) { TerminerProgramme(0); };
            b.exec();
            // Après la fin, l'appelant le sait et ne fait rien d'autre.
            if (!FinDemandee()) fermetures << "suite inattendue";
        };
        support::PiloteModal pilote;
        pilote.Attendre("Choisais", support::Cliquer("Command1"))
            .Attendre("Saislog", support::Cliquer("Command1"));
        pilote.Demarrer();
        a.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(FinDemandee());
        QCOMPARE(fermetures, QStringList({"Saislog", "Choisais"}));
        QVERIFY(!a.isVisible());
        QVERIFY(ui::PileModale::Ecrans().isEmpty());
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

    // Lancé seul dans un processus fils par le test suivant : la vraie fin du programme.
    void enfantFinReelle() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        ObserverFin(false);
        FixerFermetureBase([] { std::printf("base fermée\n"); });
        std::printf("avant\n");
        TerminerProgramme(7);
    }

    void finReelleFermeLaBaseEtSortAvecLeCode() {
        const support::ResultatFils fils = support::LancerFonctionEnFils("enfantFinReelle");
        QVERIFY(fils.termine);
        QVERIFY(!fils.plante);
        QCOMPARE(fils.code, 7);
        QVERIFY2(fils.sortie.contains("avant\nbase fermée\n"), qPrintable(fils.sortie));
        // Rien après : ni la suite du test, ni le bilan de QtTest.
        QVERIFY2(!fils.sortie.contains("Totals"), qPrintable(fils.sortie));
    }

    void gardeHorsEvenements_exceptionMontreErreurExecutionEtRendUn() {
        RepondreBoite(Reponse::OK);
        const int code = ExecuterSousGarde(
            []() -> int { throw std::out_of_range("Indice en dehors de la plage"); });
        QCOMPARE(code, 1);
        QVERIFY(FinDemandee());
        QCOMPARE(JournalBoites().size(), 1);
        QCOMPARE(JournalBoites()[0].titre, QString("Erreur d'exécution"));
        QCOMPARE(JournalBoites()[0].texte, QString("Indice en dehors de la plage"));
    }

    void gardeHorsEvenements_codeDuTravailRenduSansBoite() {
        QCOMPARE(ExecuterSousGarde([] { return 5; }), 5);
        QCOMPARE(ExecuterSousGarde([]() -> int { TerminerProgramme(3); }), 3);
        QVERIFY(JournalBoites().isEmpty());
    }

    // Lancé seul dans un processus fils : une exception sortie du démarrage, hors de la
    // boucle des événements.
    void enfantExceptionHorsEvenements() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        ObserverFin(false);
        RepondreBoite(Reponse::OK);
        std::printf("avant\n");
        std::fflush(stdout);
        ExecuterSousGarde([]() -> int { throw std::runtime_error("base illisible"); });
        std::printf("jamais\n");
    }

    void exceptionHorsEvenements_finPropreAvecUnCodeNonNul() {
        const support::ResultatFils fils =
            support::LancerFonctionEnFils("enfantExceptionHorsEvenements");
        QVERIFY(fils.termine);
        QVERIFY2(!fils.plante, qPrintable(fils.erreurs));
        QCOMPARE(fils.code, 1);
        QVERIFY2(fils.sortie.contains("avant\n"), qPrintable(fils.sortie));
        QVERIFY(!fils.sortie.contains("jamais"));
        QVERIFY(!fils.erreurs.contains("terminate"));
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
