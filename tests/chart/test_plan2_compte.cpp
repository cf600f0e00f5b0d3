// Gestion du plan comptable, côté nouveau compte et suppression : frappe dans le numéro,
// plage lue en quittant le champ, contrôles de "&Ajouter" (numéro, libellé, plages, choix
// actif ou passif), comptes clients, et les refus de suppression, avec ou sans message.

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "chart/GestionPlan.h"
#include "chart/Plan2.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <memory>

using namespace essai;
using ui::Reponse;

namespace {

const QString Plages = QStringLiteral("Les numéros de compte sont compris entre 100..... et "
                                      "799.....");
const QString HorsPlan =
    QStringLiteral("Ce numéro de compte n'existe pas dans le Plan Comptable Officiel");

} // namespace

class TestPlan2Compte : public QObject {
    Q_OBJECT
    CadreEssai cadre;
    std::unique_ptr<ecran::Plan2> e;

    template <class T> T* W(const char* nom) { return e->findChild<T*>(QString::fromLatin1(nom)); }
    ui::Grille* Tree3() { return W<ui::Grille>("Tree3"); }
    QLineEdit* Numero() { return W<QLineEdit>("Mnumero"); }
    QLineEdit* Libelle() { return W<QLineEdit>("EDlibelle"); }

    void Ouvrir() {
        e = MontrerEcran<ecran::Plan2>();
        support::CliquerBouton(e.get(), "Command5");
    }
    // Tape le numéro (le champ a le focus), puis Tab : le champ perd le focus.
    void TaperNumero(const QString& numero) {
        Numero()->setFocus();
        Numero()->clear();
        support::TaperCaracteres(Numero(), numero);
        QTest::keyClick(Numero(), Qt::Key_Tab);
    }
    void TaperLibelle(const QString& libelle) {
        Libelle()->setFocus();
        Libelle()->clear();
        support::TaperCaracteres(Libelle(), libelle);
    }
    void Ajouter() { support::CliquerBouton(e.get(), "Command8"); }
    // Saisie complète d'un compte qui ne doit donner qu'une boîte, celle-ci.
    void Refus(const QString& numero, const QString& boite) {
        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::OK);
        TaperNumero(numero);
        // Un numéro hors du plan officiel est refusé dès la sortie du champ.
        if (ui::ReponsesEnAttente() == 1) {
            TaperLibelle(QStringLiteral("Essai"));
            Ajouter();
        }
        QCOMPARE(TextesBoites(), QStringList{boite});
        QVERIFY2(!CompteExiste(numero), qPrintable(numero));
    }

private slots:
    void init() {
        cadre.Ouvrir();
        Ouvrir();
    }
    void cleanup() {
        e.reset();
        cadre.Fermer();
    }

    void ajouter_compteGeneral() {
        TaperNumero("6061");
        QCOMPARE(W<QLabel>("Lmessage")->text(),
                 QStringLiteral("Achats non stockés de matières et fournitures"));
        QCOMPARE(QApplication::focusWidget(), Libelle());
        TaperLibelle("Fournitures d'atelier");
        Ajouter();
        QVERIFY(ui::JournalBoites().isEmpty());
        const table::Compte c = LireCpt("6061");
        QCOMPARE(c.LibCpt.trimmed(), QStringLiteral("Fournitures d'atelier"));
        QCOMPARE(c.ErCpt.trimmed(), QStringLiteral("E2"));
        QCOMPARE(c.Bilan.trimmed(), QStringLiteral("CONS"));
        QCOMPARE(c.Menu, 400);
        QVERIFY(BudgetExiste("6061"));
        QCOMPARE(Tree3()->NombreLignes(), 1);
        QCOMPARE(Tree3()->Texte(0, 0), QStringLiteral("6061"));
        QCOMPARE(Tree3()->Texte(0, 2), QStringLiteral("0,00 E"));
        QCOMPARE(W<QLabel>("Label5")->text(), QStringLiteral("1 comptes"));
        QCOMPARE(Numero()->text(), QString());
        QCOMPARE(Numero()->displayText(), QStringLiteral("________"));
        QCOMPARE(Libelle()->text(), QString());
        QCOMPARE(W<QLabel>("Lmessage")->text(), QString());
        QCOMPARE(QApplication::focusWidget(), Numero());
    }

    void frappe_blancRefuseEntreeVersLeLibelleHautVersLeChoix() {
        Numero()->setFocus();
        support::TaperCaracteres(Numero(), "51 2");
        QCOMPARE(Numero()->text(), QStringLiteral("512"));
        QTest::keyClick(Numero(), Qt::Key_Return);
        QCOMPARE(QApplication::focusWidget(), Libelle());
        Numero()->setFocus();
        QTest::keyClick(Numero(), Qt::Key_Up);
        QCOMPARE(QApplication::focusWidget(), W<QWidget>("BRgeneral"));
    }

    void frappe_chercheLaPremiereLigneNonInferieure() {
        Compte("401A", "Fournisseur");
        Compte("512", "Banque");
        Compte("607", "Achats");
        CliquerOption(e.get(), "BRgeneral");
        Numero()->setFocus();
        support::TaperCaracteres(Numero(), "5");
        QCOMPARE(Tree3()->Texte(Tree3()->LigneCourante(), 0), QStringLiteral("512"));
        support::TaperCaracteres(Numero(), "2");
        QCOMPARE(Tree3()->Texte(Tree3()->LigneCourante(), 0), QStringLiteral("607"));
    }

    void client_majusculesEtCompteTiers() {
        CliquerOption(e.get(), "BRclient");
        QCOMPARE(QApplication::focusWidget(), Numero());
        support::TaperCaracteres(Numero(), "dupont");
        QCOMPARE(Numero()->text(), QStringLiteral("41DUPONT"));
        QTest::keyClick(Numero(), Qt::Key_Tab);
        QCOMPARE(W<QLabel>("Lmessage")->text(), QStringLiteral("Clients (compte individuel)"));
        TaperLibelle("Dupont SA");
        Ajouter();
        QVERIFY(ui::JournalBoites().isEmpty());
        const table::Compte c = LireCpt("41DUPONT");
        QCOMPARE(c.Menu, 170);
        QVERIFY(c.Tiers);
        QCOMPARE(c.ErCpt.trimmed(), QStringLiteral("E1"));
        QCOMPARE(Numero()->displayText(), QStringLiteral("41______"));
    }

    void fournisseur_masque40() {
        CliquerOption(e.get(), "BRfournisseur");
        support::TaperCaracteres(Numero(), "bois");
        QCOMPARE(Numero()->text(), QStringLiteral("40BOIS"));
        QTest::keyClick(Numero(), Qt::Key_Tab);
        TaperLibelle("Bois et fils");
        Ajouter();
        QCOMPARE(LireCpt("40BOIS").Menu, 160);
    }

    void quitterLeChamp_numeroHorsPlanLeMessageEtLeFocusRevient() {
        ui::RepondreBoite(Reponse::OK);
        TaperNumero("100");
        QCOMPARE(TextesBoites(), QStringList{HorsPlan});
        QCOMPARE(QApplication::focusWidget(), Numero());
    }

    void ajouter_numeroVide() {
        ui::RepondreBoite(Reponse::OK);
        TaperLibelle("Essai");
        Ajouter();
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Le numéro de compte doit être saisi !")});
        QCOMPARE(QApplication::focusWidget(), Numero());
        // Le "41" du masque client n'est pas une saisie.
        CliquerOption(e.get(), "BRclient");
        ui::RepondreBoite(Reponse::OK);
        TaperLibelle("Essai");
        Ajouter();
        QCOMPARE(TextesBoites().size(), 2);
        QCOMPARE(TextesBoites().last(), QStringLiteral("Le numéro de compte doit être saisi !"));
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 0);
    }

    void ajouter_libelleVide() {
        TaperNumero("512");
        ui::RepondreBoite(Reponse::OK);
        TaperLibelle("   ");
        Ajouter();
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Le libellé doit être saisi !")});
        QCOMPARE(QApplication::focusWidget(), Libelle());
        QVERIFY(!CompteExiste("512"));
    }

    void ajouter_numerosHorsDesPlages() {
        for (const char* n : {"699", "69912", "69999999", "7991", "10", "1", "80"})
            Refus(QString::fromLatin1(n), Plages);
        QCOMPARE(QApplication::focusWidget(), Numero());
    }

    void ajouter_numerosQuiPassentLesPlages() {
        TaperNumero("698");
        TaperLibelle("Intégration fiscale");
        Ajouter();
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(CompteExiste("698"));
        QVERIFY(BudgetExiste("698"));
        // 70012345 et 79 passent les plages ; 700 et 7900 sont ensuite hors du plan officiel.
        Refus("70012345", HorsPlan);
        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::OK);
        TaperNumero("79");
        QVERIFY(ui::JournalBoites().isEmpty());
        TaperLibelle("Essai");
        Ajouter();
        QCOMPARE(TextesBoites(), QStringList{HorsPlan});
        QVERIFY(!CompteExiste("79"));
    }

    void actifOuPassif_sansChoixRienNeSeFait() {
        TaperNumero("455");
        QVERIFY(W<QGroupBox>("Frame1")->isVisible());
        QCOMPARE(W<QGroupBox>("Frame1")->title(), QStringLiteral("Choisissez"));
        QVERIFY(!W<QRadioButton>("BRactif")->isChecked());
        QVERIFY(!W<QRadioButton>("BRpassif")->isChecked());
        TaperLibelle("Compte courant de M. Léa");
        ui::RepondreBoite(Reponse::OK);
        Ajouter();
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Pour ce compte vous devez choisir entre Actif et "
                                            "Passif.")});
        QVERIFY(!CompteExiste("455"));
        QCOMPARE(Numero()->text(), QStringLiteral("455"));
        QCOMPARE(Libelle()->text(), QStringLiteral("Compte courant de M. Léa"));
        CliquerOption(e.get(), "BRpassif");
        Ajouter();
        const table::Compte c = LireCpt("455");
        QCOMPARE(c.ErCpt.trimmed(), QStringLiteral("R1"));
        QCOMPARE(c.Bilan.trimmed(), QStringLiteral("DAP"));
        QVERIFY(!W<QGroupBox>("Frame1")->isVisible());
        TaperNumero("467");
        QVERIFY(!W<QRadioButton>("BRpassif")->isChecked());
        CliquerOption(e.get(), "BRactif");
        TaperLibelle("Débiteur divers");
        Ajouter();
        QCOMPARE(LireCpt("467").ErCpt.trimmed(), QStringLiteral("E1"));
        QCOMPARE(LireCpt("467").Bilan.trimmed(), QStringLiteral("DAR"));
    }

    void ajouter_compteExistant() {
        Compte("512", "Banque");
        TaperNumero("512");
        TaperLibelle("Autre banque");
        ui::RepondreBoite(Reponse::OK);
        Ajouter();
        QCOMPARE(TextesBoites(), QStringList{QStringLiteral("Ce compte existe déjà !")});
        QCOMPARE(LireCpt("512").LibCpt.trimmed(), QStringLiteral("Banque"));
    }

    void supprimer_compteSansMouvement() {
        Compte("607", "Achats");
        Compte("512", "Banque");
        CliquerOption(e.get(), "BRgeneral");
        Tree3()->FixerLigneCourante(Tree3()->ChercherTexte(0, "607"));
        support::CliquerBouton(e.get(), "Command6");
        QVERIFY(!CompteExiste("607"));
        QVERIFY(!BudgetExiste("607"));
        QCOMPARE(Tree3()->NombreLignes(), 1);
        QCOMPARE(W<QLabel>("Label5")->text(), QStringLiteral("1 comptes"));
        // La touche Suppr fait de même.
        Tree3()->setFocus();
        Tree3()->FixerLigneCourante(0);
        QTest::keyClick(Tree3(), Qt::Key_Delete);
        QVERIFY(!CompteExiste("512"));
        QCOMPARE(Tree3()->NombreLignes(), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void supprimer_compteAvecBudgetLeMessage() {
        Compte("607", "Achats");
        Compte("708", "Produits annexes");
        table::Budget b;
        LireBudget(Cle, "607", b);
        b.Budget = Euros(100);
        MajBudget(Cle, "607", b);
        LireBudget(Cle, "708", b);
        b.BudFut = Euros(5);
        MajBudget(Cle, "708", b);
        CliquerOption(e.get(), "BRgeneral");
        for (const char* n : {"607", "708"}) {
            ui::RepondreBoite(Reponse::OK);
            Tree3()->FixerLigneCourante(Tree3()->ChercherTexte(0, n));
            support::CliquerBouton(e.get(), "Command6");
            QVERIFY(CompteExiste(n));
        }
        const QString texte = QStringLiteral(
            "Vous ne pouvez supprimer ce compte car vous avez enregistré un budget.");
        QCOMPARE(TextesBoites(), QStringList({texte, texte}));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        QCOMPARE(Tree3()->NombreLignes(), 2);
    }

    void supprimer_refusMuetsMouvementsEtComptesFixes() {
        AssurerComptesFixes(Cle);
        Compte("512", "Banque");
        Compte("101", "Capital");
        table::Compte c = LireCpt("512");
        c.CumD = Euros(10);
        MajCompte(Cle, "512", c);
        c = LireCpt("101");
        c.Sde = Euros(1000);
        MajCompte(Cle, "101", c);
        CliquerOption(e.get(), "BRgeneral");
        for (const char* n : {"400", "410", "699", "799", "512", "101"}) {
            Tree3()->FixerLigneCourante(Tree3()->ChercherTexte(0, n));
            support::CliquerBouton(e.get(), "Command6");
            QVERIFY2(CompteExiste(n), n);
        }
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Tree3()->NombreLignes(), 6);
        QVERIFY(!CompteSupprimable(Cle, "999"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPlan2Compte t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_plan2_compte.moc"
