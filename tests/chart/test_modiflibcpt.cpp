// Changement du libellé d'un compte depuis le plan : le compte et sa ligne de budget
// prennent le texte tel que tapé (guillemet, apostrophe), la liste du plan le montre,
// aucun montant ni aucune ligne passée ne bouge.

#include "support/ExerciceEssai.h"
#include "support/PiloteModal.h"

#include "chart/GestionPlan.h"
#include "chart/ModifLibCpt.h"
#include "chart/Plan2.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QLineEdit>
#include <memory>

using namespace essai;
using ui::Reponse;

namespace {

QString LibBud(const QString& numero) {
    table::Budget b;
    LireBudget(Cle, numero, b);
    return b.LibBud.trimmed();
}

} // namespace

class TestModifLibCpt : public QObject {
    Q_OBJECT
    CadreEssai cadre;
    std::unique_ptr<ecran::Plan2> plan;

    // Le plan montré, la ligne du compte courante, puis "Modifier" : l'action agit sur
    // l'écran du libellé.
    void Modifier(const QString& numero, const support::Action& action) {
        auto* t = plan->findChild<ui::Grille*>("Tree3");
        t->FixerLigneCourante(t->ChercherTexte(0, numero));
        support::PiloteModal pilote;
        pilote.Attendre("ModifLibCpt", action);
        pilote.Demarrer();
        support::CliquerBouton(plan.get(), "Command10");
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
    }
    void Changer(const QString& numero, const QString& libelle) {
        Modifier(numero, support::Suite(
                             {support::Taper("EDlibelle", libelle), support::Cliquer("Command1")}));
    }
    QString LibellePlan(const QString& numero) {
        auto* t = plan->findChild<ui::Grille*>("Tree3");
        return t->Texte(t->ChercherTexte(0, numero), 1);
    }

private slots:
    void init() {
        cadre.Ouvrir();
        AssurerComptesFixes(Cle);
        Compte("607", "Achats");
        Compte("512", "Banque");
        plan = std::make_unique<ecran::Plan2>();
        plan->show();
    }
    void cleanup() {
        plan.reset();
        cadre.Fermer();
    }

    void ouverture_numeroEtLibelleDeLaLigne() {
        QString titre, numero, libelle;
        Modifier("607", [&](QWidget* f) {
            titre = f->windowTitle();
            numero = f->findChild<QLabel*>("Label1")->text();
            libelle = f->findChild<QLineEdit*>("EDlibelle")->text();
            support::CliquerBouton(f, "Command2");
        });
        QCOMPARE(titre, QStringLiteral("Modifier le libellé d'un compte"));
        QCOMPARE(numero, QStringLiteral("607"));
        QCOMPARE(libelle, QStringLiteral("Achats"));
        QCOMPARE(session().CompteChoisi, QStringLiteral("607"));
    }

    void guillemet_rangeUneSeuleFoisAvecLeBudget() {
        Changer("607", "Achats \"bio\"");
        QCOMPARE(LireCpt("607").LibCpt.trimmed(), QStringLiteral("Achats \"bio\""));
        QCOMPARE(LibBud("607"), QStringLiteral("Achats \"bio\""));
        QCOMPARE(LibellePlan("607"), QStringLiteral("Achats \"bio\""));
    }

    void apostrophe_suitJusquAuBudget() {
        Changer("607", "Achats d'emballages");
        QCOMPARE(LireCpt("607").LibCpt.trimmed(), QStringLiteral("Achats d'emballages"));
        QCOMPARE(LibBud("607"), QStringLiteral("Achats d'emballages"));
    }

    void compte699_leCompteSeul() {
        Changer("699", "Bénéfice de l'année");
        QCOMPARE(LireCpt("699").LibCpt.trimmed(), QStringLiteral("Bénéfice de l'année"));
        QVERIFY(!BudgetExiste("699"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), 1);
        QCOMPARE(LibBud("607"), QStringLiteral("Achats"));
    }

    void compteDeBilan_pasDeBudget() {
        Changer("512", "Banque Populaire");
        QCOMPARE(LireCpt("512").LibCpt.trimmed(), QStringLiteral("Banque Populaire"));
        QCOMPARE(LibellePlan("512"), QStringLiteral("Banque Populaire"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), 1);
    }

    void vide_leMessageEtRienNeChange() {
        ui::RepondreBoite(Reponse::OK);
        Modifier("607",
                 support::Suite({support::Taper("EDlibelle", ""), support::Cliquer("Command1"),
                                 support::Cliquer("Command2")}));
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("La saisie d'un libellé est OBLIGATOIRE !")});
        QCOMPARE(LireCpt("607").LibCpt.trimmed(), QStringLiteral("Achats"));
    }

    void annuler_rienNeChange() {
        Modifier("607", support::Suite(
                            {support::Taper("EDlibelle", "Autre"), support::Cliquer("Command2")}));
        QCOMPARE(LireCpt("607").LibCpt.trimmed(), QStringLiteral("Achats"));
        QCOMPARE(LibBud("607"), QStringLiteral("Achats"));
    }

    void montantsEtLignesPassees_intacts() {
        Passer("10/03/2024", {{"607", "D", Euros(80)}, {"512", "C", Euros(80)}}, "A");
        const table::Compte avant = LireCpt("607");
        Changer("607", "Marchandises");
        const table::Compte apres = LireCpt("607");
        QCOMPARE(apres.Solde, avant.Solde);
        QCOMPARE(apres.CumD, avant.CumD);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Ecriture WHERE LibEcr='Essai'"), 2);
    }

    void sansPlan_leCompteChoisi() {
        session().CompteChoisi = QStringLiteral("512");
        ecran::ModifLibCpt m;
        QCOMPARE(m.findChild<QLabel*>("Label1")->text(), QStringLiteral("512"));
        QCOMPARE(m.findChild<QLineEdit*>("EDlibelle")->text(), QStringLiteral("Banque"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestModifLibCpt t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_modiflibcpt.moc"
