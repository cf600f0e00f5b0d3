// Saisie du budget par les écrans Budget00, Budget02 et Budget01 : douzièmes, pourcentages
// d'un total, montants par mois ; chaque refus avec sa boîte ; la validation qui descend la
// liste ; le mois d'octobre en tête pour un exercice commencé en janvier ; le budget de
// l'exercice suivant, puis le transfert de fin d'année : ce qui passe et ce qui s'efface.
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"

#include "budget/Budget00.h"
#include "budget/SaisieBudget.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"
#include "yearend/DonneesCloture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

table::Budget Ligne(const QString& numero, const QString& cle = Cle) {
    table::Budget b;
    LireBudget(cle, numero, b);
    return b;
}

} // namespace

class TestSaisieBudget : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<ecran::SaisieBudget> e;

    ui::Grille* Tree(const char* nom) { return e->findChild<ui::Grille*>(nom); }
    QString Texte(const char* nom) { return e->findChild<QLabel*>(nom)->text(); }
    QLineEdit* Total() { return e->findChild<QLineEdit*>("Text1"); }
    void Cliquer(const char* nom) {
        if (auto* b = e->findChild<QPushButton*>(nom))
            QTest::mouseClick(b, Qt::LeftButton);
        else
            e->findChild<QRadioButton*>(nom)->click();
    }
    void Ouvrir(bool suivant, const QString& compte) {
        if (suivant)
            e = std::make_unique<ecran::Budget01>();
        else
            e = std::make_unique<ecran::Budget02>();
        e->show();
        QVERIFY(QTest::qWaitForWindowExposed(e.get()));
        if (compte.isEmpty()) return;
        const int ligne = Tree("Tree1")->ChercherTexte(1, compte);
        QVERIFY2(ligne >= 0, qPrintable(compte));
        QVERIFY(support::CliquerCellule(Tree("Tree1"), ligne, 2));
    }
    // Clic sur la ligne d'un mois, puis la saisie dans la cellule que l'écran a ouverte.
    void SaisirMois(const QString& mois, const QString& texte) {
        ui::Grille* t = Tree("Tree2");
        const int ligne = t->ChercherTexte(0, mois);
        QVERIFY2(ligne >= 0, qPrintable(mois));
        QVERIFY(support::CliquerCellule(t, ligne, 0));
        QVERIFY(t->EditionOuverte());
        support::TaperDansCellule(t, texte);
    }
    QString Prevision(const QString& mois) {
        ui::Grille* t = Tree("Tree2");
        return t->Texte(t->ChercherTexte(0, mois), 3);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        session().MoisDebutExercice = CalculMoisDebutExercice("20240101");
        essai::Ecriture("05/03/2024", "A", {{"607", "D", 80}, {"512", "C", 80}});
        essai::Ecriture("06/03/2024", "V", {{"512", "D", 150}, {"707", "C", 150}});
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        e.reset();
        FermerBase();
        dossier.reset();
    }

    void ouverture_colonnesEtComptes() {
        Ouvrir(false, QString());
        QCOMPARE(e->objectName(), QStringLiteral("Budget02"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Gestion du budget de l'exercice en cours"));
        ui::Grille* t = Tree("Tree1");
        QCOMPARE(t->Titre(3), QStringLiteral("Réalisé 2023"));
        QCOMPARE(t->Titre(4), QStringLiteral("Réalisé 2024"));
        QCOMPARE(t->Titre(5), QStringLiteral("Prévisions 2024"));
        QCOMPARE(Tree("Tree2")->Titre(3), QStringLiteral("Prévision 2024"));
        const int achats = t->ChercherTexte(1, "607");
        QCOMPARE(t->Texte(achats, 0), QStringLiteral("Charges"));
        QCOMPARE(t->Texte(achats, 4), essai::AfficheEuros(80));
        QCOMPARE(t->Texte(t->ChercherTexte(1, "707"), 0), QStringLiteral("Produits"));
        // Mode 1 au départ : ni total annuel, ni reste à ventiler, ni calcul.
        QVERIFY(Total()->isHidden());
        QVERIFY(e->findChild<QLabel*>("Label5")->isHidden());
        QVERIFY(e->findChild<QPushButton*>("Command2")->isHidden());
        QVERIFY(!e->findChild<QLabel*>("Label2")->isHidden());
    }

    // Exercice commencé le 1er janvier : octobre en tête, rangé dans le champ du mois 10.
    void octobreEnTete_rangeDansSonMois() {
        Ouvrir(false, "607");
        QCOMPARE(Texte("Label6"), QStringLiteral("607 Achats de marchandises"));
        ui::Grille* t = Tree("Tree2");
        QCOMPARE(t->NombreLignes(), 12);
        QCOMPARE(t->Texte(0, 0), QStringLiteral("Octobre"));
        QCOMPARE(t->DonneeLigne(0).toInt(), 10);
        QCOMPARE(t->Texte(t->ChercherTexte(0, "Mars"), 2), essai::AfficheEuros(80));
        SaisirMois("Octobre", "150,5");
        QCOMPARE(Prevision("Octobre"), essai::AfficheEuros(150.5));
        QCOMPARE(Texte("Label2"), essai::AfficheEuros(150.5));
        QVERIFY(e->SaisieModifiee);
        Cliquer("Command5");
        QCOMPARE(Ligne("607").BudgetM[10], Euros(150.5));
        QCOMPARE(Ligne("607").BudgetM[1], Montant());
        QCOMPARE(Ligne("607").Budget, Euros(150.5));
    }

    void saisieIncorrecte_laCelluleResteOuverte() {
        Ouvrir(false, "607");
        ui::RepondreBoite(Reponse::OK);
        SaisirMois("Janvier", "12a");
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Votre saisie n'est pas correcte, recommencez"});
        QVERIFY(Tree("Tree2")->EditionOuverte());
        support::TaperDansCellule(Tree("Tree2"), "");
        QCOMPARE(Prevision("Janvier"), essai::AfficheEuros(0));
    }

    // 1 000,00 en douzièmes : 83,33 par mois, 999,96 rangés, sans message.
    void automatique_douziemesArrondisParLAffichage() {
        Ouvrir(false, "607");
        Cliquer("Option3");
        QCOMPARE(e->ModeVentil, 3);
        QVERIFY(!e->findChild<QPushButton*>("Command2")->isHidden());
        QVERIFY(e->findChild<QLabel*>("Label2")->isHidden());
        support::TaperCaracteres(Total(), "1000");
        QTest::keyClick(Total(), Qt::Key_Return); // Entrée en mode 3 : le calcul
        for (int i = 0; i < 12; ++i)
            QCOMPARE(Tree("Tree2")->Texte(i, 3), essai::AfficheEuros(83.33));
        Cliquer("Command5");
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Ligne("607").Budget, Euros(999.96));
        QCOMPARE(Ligne("607").BudgetM[4], Euros(83.33));
        // Retour au mode 1, et la liste descend au compte suivant.
        QCOMPARE(e->ModeVentil, 1);
        QVERIFY(e->findChild<QRadioButton*>("Option1")->isChecked());
        QCOMPARE(Tree("Tree1")->Texte(Tree("Tree1")->LigneCourante(), 1), QStringLiteral("626"));
        QCOMPARE(Texte("Label6"), QStringLiteral("626 Frais postaux"));
        QCOMPARE(Tree("Tree1")->Texte(Tree("Tree1")->ChercherTexte(1, "607"), 5),
                 essai::AfficheEuros(999.96));
    }

    void calculSansTotal_messageEtFocus() {
        Ouvrir(false, QString());
        ui::RepondreBoite(Reponse::OK);
        Cliquer("Command2");
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Sélectionnez d'abord un compte dans la liste du haut !"});
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Attention"));
        QVERIFY(support::CliquerCellule(Tree("Tree1"), 0, 1));
        Cliquer("Option3");
        support::TaperCaracteres(Total(), "0");
        ui::RepondreBoite(Reponse::OK);
        Cliquer("Command2");
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Le total annuel de la prévision doit être rempli !"));
        QCOMPARE(QApplication::focusWidget(), Total());
    }

    // 30 % en janvier, 50 % en février : reste 20,00 %, la validation le demande.
    void pourcentages_resteEtQuestion() {
        Ouvrir(false, "707");
        Cliquer("Option2");
        QVERIFY(!Total()->isHidden());
        QVERIFY(!e->findChild<QLabel*>("Label5")->isHidden());
        // Sans total, un clic sur un mois le rappelle.
        ui::RepondreBoite(Reponse::OK);
        QVERIFY(support::CliquerCellule(Tree("Tree2"), 3, 0));
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Le total annuel de la prévision doit être rempli !"});
        support::TaperCaracteres(Total(), "1000");
        SaisirMois("Janvier", "30");
        QCOMPARE(Tree("Tree2")->Texte(Tree("Tree2")->ChercherTexte(0, "Janvier"), 4),
                 QStringLiteral("30,00%"));
        QCOMPARE(Prevision("Janvier"), essai::AfficheEuros(300));
        SaisirMois("Février", "50%");
        QCOMPARE(Texte("Label5"), QStringLiteral("20,00%"));
        QCOMPARE(Texte("Label2"), essai::AfficheEuros(800));
        ui::RepondreBoite(Reponse::Non);
        Cliquer("Command5");
        QCOMPARE(ui::JournalBoites().last().texte,
                 "Vous avez ventilé " + essai::AfficheEuros(800) + " sur les " +
                     essai::AfficheEuros(1000) + " prévus initialement.\nVoulez-vous continuer ?");
        QCOMPARE(ui::JournalBoites().last().boutons, ui::Boutons::OuiNon);
        QCOMPARE(Ligne("707").Budget, Montant());
        ui::RepondreBoite(Reponse::Oui);
        Cliquer("Command5");
        QCOMPARE(Ligne("707").Budget, Euros(800));
        QCOMPARE(Ligne("707").BudgetM[2], Euros(500));
    }

    // 120 % dans un mois : le message, et le montant du mois reste tel quel.
    void centVingtPourCent_refuse() {
        Ouvrir(false, "707");
        Cliquer("Option2");
        support::TaperCaracteres(Total(), "1000");
        SaisirMois("Mars", "40");
        ui::RepondreBoite(Reponse::OK);
        SaisirMois("Avril", "120");
        QCOMPARE(essai::TextesBoites(), QStringList{"Vous êtes en train de dépasser les 100% !"});
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Attention"));
        QCOMPARE(Prevision("Avril"), essai::AfficheEuros(0));
        QCOMPARE(Prevision("Mars"), essai::AfficheEuros(400));
    }

    void pourcentageSansTotal_validationRefusee() {
        Ouvrir(false, "707");
        Cliquer("Option2");
        ui::RepondreBoite(Reponse::OK);
        Cliquer("Command5");
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Le total annuel doit être saisi avant de cliquer sur Ok"});
    }

    // Le dernier compte validé : la sélection ne bouge pas.
    void derniereLigne_laSelectionReste() {
        Ouvrir(false, QString());
        ui::Grille* t = Tree("Tree1");
        const int derniere = t->NombreLignes() - 1;
        QVERIFY(support::CliquerCellule(t, derniere, 1));
        const QString numero = t->Texte(derniere, 1);
        SaisirMois("Mai", "10");
        Cliquer("Command5");
        QCOMPARE(t->LigneCourante(), derniere);
        QCOMPARE(t->Texte(t->LigneCourante(), 1), numero);
        QCOMPARE(Tree("Tree2")->NombreLignes(), 0);
    }

    // Le menu : exercice précédent absent, ouvert, puis clos ; exercice en cours clos.
    void menu_exercicePrecedentEtExerciceClos() {
        support::PiloteModal pilote;
        pilote.Attendre("Budget00", support::Cliquer("Command1"))
            .Attendre("Budget02", support::Cliquer("Command3"))
            .Attendre("Budget00", support::Cliquer("Command2"))
            .Attendre("Budget01", support::Cliquer("Command3"))
            .Attendre("Budget00", support::Cliquer("Command3"));
        pilote.Demarrer();
        {
            ecran::Budget00 menu;
            QCOMPARE(menu.windowTitle(), QStringLiteral("Contrôle Budgétaire"));
            menu.exec();
        }
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(ui::JournalBoites().isEmpty());

        essai::AjouterAnnee(1, 2023);
        ecran::Budget00 menu;
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(menu.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"L 'exercice 2023 n'étant pas clos, les prévisions du budget de "
                             "l'exercice 2024 sont à établir à partir de l'exercice 2023."});
        essai::Executer("UPDATE Constante SET ExerciceClos = 1");
        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(menu.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"L’exercice en cours est clos. Pour gérer les prévisions de "
                             "l'exercice\nsuivant vous devez sélectionner cet exercice (Menu "
                             "Société Option Gérer)\npuis choisir la gestion du budget de "
                             "l'exercice en cours."});
    }

    void capture_saisieEnPourcentages() {
        Ouvrir(false, "707");
        Cliquer("Option2");
        support::TaperCaracteres(Total(), "1000");
        SaisirMois("Janvier", "30");
        SaisirMois("Février", "50");
        const QImage image = e->grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("budget02.png")));
    }

    // Le budget de l'exercice suivant, saisi avant le transfert : il devient le budget de
    // l'année suivante, le réalisé devient son réalisé antérieur, sa prévision future
    // s'efface ; le budget de l'année en cours n'a pas bougé.
    void exerciceSuivant_puisTransfert() {
        Ouvrir(true, "607");
        QCOMPARE(e->objectName(), QStringLiteral("Budget01"));
        QCOMPARE(Tree("Tree1")->Titre(5), QStringLiteral("Prévisions 2025"));
        QCOMPARE(Tree("Tree2")->Titre(3), QStringLiteral("Prévision 2025"));
        SaisirMois("Janvier", "200");
        SaisirMois("Juin", "40");
        Cliquer("Command5");
        QCOMPARE(Ligne("607").BudFut, Euros(240));
        QCOMPARE(Ligne("607").Budget, Montant());
        QCOMPARE(Tree("Tree1")->Texte(Tree("Tree1")->ChercherTexte(1, "607"), 5),
                 essai::AfficheEuros(240));
        e.reset();

        table::Constante k;
        LireConstante(Cle, k);
        cloture::CreerPlanSuivant(Cle, "012025", k);
        cloture::TransfererSoldes(Cle, "012025", {});
        const table::Budget suivant = Ligne("607", "012025");
        QCOMPARE(suivant.Budget, Euros(240));
        QCOMPARE(suivant.BudgetM[1], Euros(200));
        QCOMPARE(suivant.BudgetM[6], Euros(40));
        QCOMPARE(suivant.ReelA, Euros(80));
        QCOMPARE(suivant.ReelAM[3], Euros(80));
        QCOMPARE(suivant.BudFut, Montant());
        QCOMPARE(Ligne("607").BudFut, Euros(240));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisieBudget test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_saisie_budget.moc"
