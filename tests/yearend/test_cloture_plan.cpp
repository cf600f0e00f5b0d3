// Plan de l'exercice suivant par l'écran Cloture : NouveauPC resynchronisé à l'ouverture,
// bilan d'ouverture réglé au dernier mois, les deux refus, les comptes, budgets, la ligne de
// Constante un an plus tard, les sections, et la dernière question.
#include "EssaiCloture.h"
#include "support/DossierEssai.h"
#include "support/ExerciceEssai.h"
#include "support/Outils.h"

#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "yearend/Cloture.h"

#include <QPushButton>
#include <QtTest>

using namespace cloture_essai;
using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

const QString TexteNonEquilibre =
    QStringLiteral("Votre bilan d’ouverture n’est pas équilibré.\n\n Voir le choix Plan et le "
                   "bouton Création du premier bilan d’ouverture.");
const QString TexteTransfertAFaire =
    QStringLiteral("Vous ne pouvez pas créer le plan comptable de \nl’exercice suivant car vous "
                   "n’avez pas encore \nfait le transfert définitif des soldes de l’exercice \n"
                   "précédent sur l’exercice en cours.");
const QString TextePlanCree = QStringLiteral(
    "Le plan comptable de l’exercice suivant est créé.\n\nPour saisir des écritures sur ce "
    "nouvel exercice il suffit de le choisir\nlorsque vous lancez le programme");
const QString TexteOffre =
    QStringLiteral("Voulez-vous faire un transfert provisoire des soldes\nde l’exercice en cours "
                   "sur le nouvel exercice que vous venez de créer ?");

QPushButton* Bouton(QWidget& ecran, const char* nom) {
    return ecran.findChild<QPushButton*>(QString::fromLatin1(nom));
}

} // namespace

class TestCloturePlan : public QObject {
    Q_OBJECT
    essai::CadreEssai cadre;

    // Décembre : le dernier mois de l'exercice 2024.
    void Livres(const QString& date = QStringLiteral("31/12/2024")) {
        essai::OuvrirLivres(cadre.dossier->Chemin(), date);
        Constante(Cle, [](table::Constante& k) { k.OuvertureClos = true; });
    }

    void CreerPlan(Reponse offre = Reponse::Non) {
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreBoite(offre);
        ecran::Cloture ecran;
        QTest::mouseClick(Bouton(ecran, "Command1"), Qt::LeftButton);
    }

private slots:
    void init() { cadre.Ouvrir(false); }
    void cleanup() { cadre.Fermer(); }

    void ouverture_nouveauPCSuitLaBase() {
        Livres();
        Constante(Cle, [](table::Constante& k) { k.NouveauPC = true; });
        {
            ecran::Cloture ecran;
            QCOMPARE(ecran.objectName(), QStringLiteral("Cloture"));
            QCOMPARE(ecran.windowTitle(), QStringLiteral("Clôture"));
            QVERIFY(Bouton(ecran, "Command1")->isEnabled());
            QVERIFY(!ecran.findChild<QWidget*>("Gauge1")->isVisibleTo(&ecran));
        }
        QVERIFY(!Lue(Cle).NouveauPC);
        CreerPlan();
        Constante(Cle, [](table::Constante& k) { k.NouveauPC = false; });
        ecran::Cloture ecran;
        QVERIFY(!Bouton(ecran, "Command1")->isEnabled());
        QVERIFY(Lue(Cle).NouveauPC);
    }

    // Équilibré, jamais clos, au dernier mois : le bilan d'ouverture est clos ici.
    void ouvertureEquilibreeDernierMois_estClose() {
        Livres();
        Constante(Cle, [](table::Constante& k) { k.OuvertureClos = false; });
        essai::SoldeOuverture("512", Euros(1000));
        essai::SoldeOuverture("101", Euros(1000));
        CreerPlan();
        QVERIFY(Lue(Cle).OuvertureClos);
        QCOMPARE(essai::TextesBoites(), (QStringList{TextePlanCree, TexteOffre}));
        QVERIFY(Lue(Cle).NouveauPC);
    }

    void ouvertureNonCloseMoisAnterieur_refus() {
        Livres(QStringLiteral("15/11/2024"));
        Constante(Cle, [](table::Constante& k) { k.OuvertureClos = false; });
        ui::RepondreBoite(Reponse::OK);
        ecran::Cloture ecran;
        QTest::mouseClick(Bouton(ecran, "Command1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(), QStringList{TexteNonEquilibre});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Information);
        QVERIFY(!Lue(Cle).OuvertureClos);
        QVERIFY(ExerciceSuivant().isEmpty());
    }

    void ouvertureNonEquilibreeDernierMois_refus() {
        Livres();
        Constante(Cle, [](table::Constante& k) { k.OuvertureClos = false; });
        essai::SoldeOuverture("512", Euros(1000));
        ui::RepondreBoite(Reponse::OK);
        ecran::Cloture ecran;
        QTest::mouseClick(Bouton(ecran, "Command1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(), QStringList{TexteNonEquilibre});
        QVERIFY(!Lue(Cle).OuvertureClos);
    }

    void ouvertureCloseTotauxInegaux_refus() {
        Livres();
        essai::SoldeOuverture("512", Euros(1000));
        ui::RepondreBoite(Reponse::OK);
        ecran::Cloture ecran;
        QTest::mouseClick(Bouton(ecran, "Command1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(), QStringList{TexteTransfertAFaire});
        QVERIFY(ExerciceSuivant().isEmpty());
        QVERIFY(Bouton(ecran, "Command1")->isEnabled());
    }

    // Un exercice de dix-huit mois : le suivant garde jour et mois, un an plus tard.
    void exerciceLong_bornesUnAnPlusTard() {
        Livres(QStringLiteral("31/12/2025"));
        Constante(Cle, [](table::Constante& k) {
            k.DateDebut = "20240701";
            k.DateFin = "20251231";
        });
        CreerPlan();
        const table::Constante n = Lue(Suivante);
        QCOMPARE(n.CleCon, Suivante);
        QCOMPARE(n.DateDebut, QStringLiteral("20250701"));
        QCOMPARE(n.DateSaisie, QStringLiteral("20250701"));
        QCOMPARE(n.DateFin, QStringLiteral("20261231"));
        QVERIFY(n.OuvertureClos);
        QCOMPARE(n.SymboleMon, QStringLiteral("E"));
        QVERIFY(n.SDE1.estNul() && n.SDR1.estNul() && n.E1.estNul() && n.Resultat.estNul());
    }

    // Ce qui passe : comptes utilisés, 400, 410, 699, 799, comptes de résultat avec une
    // prévision ; ce qui reste : un compte jamais utilisé. Budgets des classes 6 et 7 sauf
    // 699 et 799.
    void comptesEtBudgetsDuNouveauPlan() {
        Livres();
        essai::Vente(Euros(100), Euros(20));
        table::Budget b;
        QVERIFY(LireBudget(Cle, "626", b));
        b.BudFut = Euros(300);
        MajBudget(Cle, "626", b);
        Base().exec("INSERT INTO Section (CleCpt, NumSection, NomSection) VALUES "
                    "('012024', 3, 'Atelier'), ('012024', 7, 'Boutique')");
        CreerPlan();
        QStringList comptes;
        for (const QString& l : Lignes("Compte", "CleCpt", Suivante, "NumCpt"))
            comptes << l.section('|', 1, 1);
        QCOMPARE(comptes,
                 (QStringList{"400", "410", "411001", "44571", "626", "699", "707", "799"}));
        const table::Compte c = CompteLu(Suivante, "707");
        QCOMPARE(c.LibCpt, CompteLu(Cle, "707").LibCpt);
        QCOMPARE(c.ErCpt, CompteLu(Cle, "707").ErCpt);
        QCOMPARE(c.Menu, CompteLu(Cle, "707").Menu);
        QVERIFY(c.Sde.estNul() && c.CumD.estNul() && c.CumC.estNul() && c.Solde.estNul());
        QStringList budgets;
        for (const QString& l : Lignes("Budget", "CleCpt", Suivante, "NumBud"))
            budgets << l.section('|', 1, 1);
        QCOMPARE(budgets, (QStringList{"626", "707"}));
        table::Budget nb;
        QVERIFY(LireBudget(Suivante, "626", nb));
        QCOMPARE(nb.LibBud.trimmed(), QStringLiteral("Frais postaux"));
        QVERIFY(nb.BudFut.estNul() && nb.Budget.estNul());
        QCOMPARE(Lignes("Section", "CleCpt", Suivante, "NumSection"),
                 (QStringList{"012025|3|Atelier", "012025|7|Boutique"}));
    }

    // Non à l'offre : le plan est là, sans aucun solde.
    void nonALOffre_planSansSoldes() {
        Livres();
        essai::SoldeOuverture("512", Euros(500));
        essai::SoldeOuverture("101", Euros(500));
        essai::Vente(Euros(100), Euros(20));
        CreerPlan(Reponse::Non);
        QVERIFY(!ExerciceSuivant().isEmpty());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012025' AND "
                                "(Sde<>0 OR Solde<>0 OR SoldeAnte<>0)"),
                 0);
        QVERIFY(Lue(Suivante).SDE1.estNul());
    }

    void aide_contexteTreize() {
        Livres();
        ecran::Cloture ecran;
        QVERIFY(Bouton(ecran, "Command4"));
        QCOMPARE(Bouton(ecran, "Command4")->text(), QStringLiteral("&Aide"));
        QCOMPARE(Bouton(ecran, "Command3")->text(), QStringLiteral("&Quitter"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestCloturePlan test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_cloture_plan.moc"
