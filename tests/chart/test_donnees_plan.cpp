// Porte des données du plan, sans écran : plans standard de maroval.ini et plan retenu,
// comptes d'un plan standard, copie d'un plan en une fois, création d'un compte tapé avec
// ses refus, libellé d'un compte et de son budget.
#include "support/DonneesReference.h"
#include "support/ExerciceEssai.h"

#include "chart/DonneesPlan.h"
#include "ui/Application.h"

#include <QtTest>

using namespace essai;

class TestDonneesPlan : public QObject {
    Q_OBJECT
    // Aucune boîte ne doit venir : la garde le vérifie à la fin de chaque essai.
    CadreEssai cadre;

private slots:
    void init() { cadre.Ouvrir(); }
    void cleanup() { cadre.Fermer(); }

    void plansStandard_lusDansMarovalIni() {
        const QList<plan::PlanStandard> plans = plan::LirePlansStandard();
        QCOMPARE(plans.size(), 5);
        QCOMPARE(plans.first().numero, QStringLiteral("0001"));
        QCOMPARE(plans.first().libelle,
                 QStringLiteral("Commerce (achat et revente de marchandises)"));
        QStringList numeros;
        for (const auto& p : plans)
            numeros << p.numero;
        QCOMPARE(numeros, Plans());
    }

    void planRetenu_parSocieteEtAucunParDefaut() {
        QCOMPARE(plan::PlanRetenu(1), QStringLiteral("0000"));
        plan::RetenirPlan(1, QStringLiteral("0003"));
        QCOMPARE(plan::PlanRetenu(1), QStringLiteral("0003"));
        QCOMPARE(plan::PlanRetenu(2), QStringLiteral("0000"));
        plan::RetenirPlan(1, QString());
        QCOMPARE(plan::PlanRetenu(1), QStringLiteral("0000"));
    }

    void copie_toutLePlanPuisRienDeNouveau() {
        const auto comptes = plan::ComptesDuPlanStandard(QStringLiteral("0002"));
        QCOMPARE(static_cast<int>(comptes.size()),
                 Compter("SELECT COUNT(*) FROM PlanType WHERE NumPlan='0002'"));
        int appels = 0;
        const auto crees = plan::CopierComptes(Cle, comptes, [&](int i) { QCOMPARE(i, appels++); });
        QCOMPARE(appels, static_cast<int>(comptes.size()));
        QCOMPARE(crees.size(), comptes.size());
        QCOMPARE(static_cast<int>(plan::ComptesDeLExercice(Cle).size()),
                 Compter("SELECT COUNT(*) FROM Compte WHERE CleCpt='012024'"));
        QVERIFY(plan::CopierComptes(Cle, comptes, {}).empty());
    }

    void comptesDeLExercice_parFonction() {
        Compte("411DUP", "Dupont");
        Compte("401MAR", "Martin");
        Compte("512", "Banque");
        const auto clients = plan::ComptesDeLExercice(Cle, 170);
        QCOMPARE(clients.size(), std::size_t(1));
        QCOMPARE(clients.front().numero, QStringLiteral("411DUP"));
        QCOMPARE(plan::ComptesDeLExercice(Cle, 160).front().libelle, QStringLiteral("Martin"));
        QCOMPARE(plan::ComptesDeLExercice(Cle).size(), std::size_t(3));
    }

    void controle_refusDansLOrdreAvecLeChampAReprendre() {
        plan::Refus r = plan::ControlerCompteTape(true, QString(), QStringLiteral("Libellé"));
        QCOMPARE(r.texte, QStringLiteral("Le numéro de compte doit être saisi !"));
        QCOMPARE(r.champ, plan::Champ::Numero);
        r = plan::ControlerCompteTape(false, QStringLiteral("607"), QStringLiteral("   "));
        QCOMPARE(r.texte, QStringLiteral("Le libellé doit être saisi !"));
        QCOMPARE(r.champ, plan::Champ::Libelle);
        r = plan::ControlerCompteTape(false, QStringLiteral("6991"), QStringLiteral("Résultat"));
        QCOMPARE(r.texte,
                 QStringLiteral("Les numéros de compte sont compris entre 100..... et 799....."));
        QVERIFY(!plan::ControlerCompteTape(false, QStringLiteral("6071"), QStringLiteral("Achats"))
                     .estRefus());
    }

    // Le test des plages seul, sans le champ ni sa perte de focus : comparaisons de textes,
    // donc 7991 est au-delà de "799" et 79 en deçà.
    void controle_plagesDesNumerosTapes_data() {
        QTest::addColumn<QString>("numero");
        QTest::addColumn<bool>("admis");
        for (const char* n : {"100", "698", "70012345", "79", "799", "5999"})
            QTest::newRow(n) << QString::fromLatin1(n) << true;
        for (const char* n : {"699", "69912", "69999999", "7991", "80", "10", "1", "099"})
            QTest::newRow(n) << QString::fromLatin1(n) << false;
    }
    void controle_plagesDesNumerosTapes() {
        QFETCH(QString, numero);
        QFETCH(bool, admis);
        const plan::Refus r = plan::ControlerCompteTape(false, numero, QStringLiteral("Essai"));
        if (admis) {
            QVERIFY2(!r.estRefus(), qPrintable(r.texte));
        } else {
            QCOMPARE(r.texte, QStringLiteral("Les numéros de compte sont compris entre 100..... et "
                                             "799....."));
            QCOMPARE(r.champ, plan::Champ::Numero);
        }
    }

    void creation_horsPlanCoteDemandeEtDoublon() {
        plan::Refus r = plan::CreerCompteTape(Cle, QStringLiteral("103"), QStringLiteral("X"),
                                              QStringLiteral("NN"), plan::Cote::Aucun);
        QCOMPARE(r.texte, QStringLiteral(
                              "Ce numéro de compte n'existe pas dans le Plan Comptable Officiel"));
        QCOMPARE(r.champ, plan::Champ::Numero);
        QVERIFY(!CompteExiste("103"));

        r = plan::CreerCompteTape(Cle, QStringLiteral("181"), QStringLiteral("Liaison"),
                                  QStringLiteral("WW"), plan::Cote::Aucun);
        QCOMPARE(r.texte,
                 QStringLiteral("Pour ce compte vous devez choisir entre Actif et Passif."));
        QCOMPARE(r.champ, plan::Champ::Cote);
        QVERIFY(!CompteExiste("181"));
        QVERIFY(!plan::CreerCompteTape(Cle, QStringLiteral("181"), QStringLiteral("Liaison"),
                                       QStringLiteral("WW"), plan::Cote::Passif)
                     .estRefus());
        QCOMPARE(LireCpt("181").ErCpt.trimmed(), QStringLiteral("R1"));
        QCOMPARE(LireCpt("181").Bilan.trimmed(), QStringLiteral("DAP"));

        r = plan::CreerCompteTape(Cle, QStringLiteral("181"), QStringLiteral("Encore"),
                                  QStringLiteral("WW"), plan::Cote::Actif);
        QCOMPARE(r.texte, QStringLiteral("Ce compte existe déjà !"));
        QCOMPARE(r.champ, plan::Champ::Aucun);
    }

    void libelle_duCompteEtDeSonBudget() {
        Compte("607", "Achats");
        Compte("401", "Fournisseurs");
        plan::ChangerLibelleCompte(Cle, QStringLiteral("607"),
                                   QStringLiteral("Achats \"marchandises\" d'été"));
        plan::ChangerLibelleCompte(Cle, QStringLiteral("401"), QStringLiteral("Fournisseurs L'Or"));
        QCOMPARE(LireCpt("607").LibCpt.trimmed(), QStringLiteral("Achats \"marchandises\" d'été"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget WHERE NumBud='607' AND LibBud=?",
                         QStringLiteral("Achats \"marchandises\" d'été")),
                 1);
        QCOMPARE(LireCpt("401").LibCpt.trimmed(), QStringLiteral("Fournisseurs L'Or"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget WHERE NumBud='401'"), 0);
    }

    void comptesDuCode_soldeDOuverture() {
        Compte("512", "Banque");
        Compte("101", "Capital");
        Executer("UPDATE Compte SET Sde=1000000 WHERE NumCpt='512'");
        const auto actif = plan::ComptesDuCode(Cle, QStringLiteral("E1"));
        QCOMPARE(actif.size(), std::size_t(1));
        QCOMPARE(actif.front().solde, Euros(100));
        QCOMPARE(plan::ComptesDuCode(Cle, QStringLiteral("R1")).front().numero,
                 QStringLiteral("101"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestDonneesPlan t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_donnees_plan.moc"
