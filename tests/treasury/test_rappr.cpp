// Rapprochement bancaire : l'ancienne forme du pointage effacée de toute la base, les
// comptes de banque seuls, les deux faces de l'écran, le pointage au clic et le solde
// théorique du relevé.
#include "EssaiTresor.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"

#include "treasury/Rappr.h"
#include "ui/Application.h"
#include "ui/Dialogues.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace tresor_essai;

class TestRappr : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<ecran::Rappr> e;

    ui::Grille* Tree(const char* nom) { return e->findChild<ui::Grille*>(nom); }
    QString Texte(const char* nom) { return e->findChild<QLabel*>(nom)->text(); }
    void Cliquer(const char* bouton) {
        QTest::mouseClick(e->findChild<QPushButton*>(bouton), Qt::LeftButton);
    }
    int LigneDe(double numero) { return Tree("Tree2")->ChercherTexte(0, QString::number(numero)); }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        FixerCompte("512", 1000, 1250);
        Ligne("512", 1, 400);
        Ligne("512", 2, -100, 1);
        Ligne("512", 3, -50, 255);
        Ligne("512", 4, 0.5);
        // Une autre société, un autre exercice : sa forme ancienne disparaît aussi.
        Ligne("411001", 1, 10, 255, "________", "022023");
        FixerCompte("5121", 20, 20);
    }
    void cleanup() {
        e.reset();
        FermerBase();
        dossier.reset();
    }

    void ouverture_255DisparaitPartout() {
        e = std::make_unique<ecran::Rappr>();
        QCOMPARE(essai::Compter("SELECT count(*) FROM Ecriture WHERE Lettrage = 255"), 0);
        QCOMPARE(Lettrage(3), 1);
        QCOMPARE(Lettrage(1, "022023"), 1);
        QCOMPARE(e->windowTitle(), QStringLiteral("Etat de rapprochement bancaire"));
        // Les comptes de banque seuls (ni la caisse 530 ni les tiers), le premier choisi.
        ui::Grille* t = Tree("Tree1");
        QCOMPARE(t->NombreLignes(), 2);
        QCOMPARE(t->Texte(0, 0), QStringLiteral("512"));
        QCOMPARE(t->Texte(1, 0), QStringLiteral("5121"));
        QCOMPARE(t->LigneCourante(), 0);
        QCOMPARE(Texte("Label10"), QStringLiteral("512"));
        QCOMPARE(Texte("Label11"), QStringLiteral("Banque"));
        QCOMPARE(Texte("Label3"), essai::AfficheEuros(1000));
        QCOMPARE(Texte("Label9"), essai::AfficheEuros(1250));
        QCOMPARE(Texte("Label1"), QStringLiteral("Sélectionnez un compte"));
        QVERIFY(Tree("Tree2")->isHidden());
    }

    void aucunCompteDeBanque_listeVide() {
        essai::Executer("DELETE FROM Compte WHERE CleCpt = '012024' AND Menu = 330");
        e = std::make_unique<ecran::Rappr>();
        QCOMPARE(Tree("Tree1")->NombreLignes(), 0);
        QCOMPARE(Texte("Label10"), QString());
    }

    void toutesLesEcritures_soldeTheoriqueEtPointage() {
        e = std::make_unique<ecran::Rappr>();
        e->show();
        Cliquer("Command1");
        QCOMPARE(Texte("Label1"), QStringLiteral("Liste de toutes les écritures du compte"));
        QVERIFY(!Tree("Tree2")->isHidden());
        QVERIFY(Tree("Tree1")->isHidden());
        QVERIFY(!e->findChild<QPushButton*>("Command1")->isEnabled());
        QCOMPARE(Texte("Label12"), QStringLiteral("Solde théorique du relevé bancaire :"));
        ui::Grille* t = Tree("Tree2");
        QCOMPARE(t->NombreLignes(), 4);
        // 1 000 de début, -100 et -50 pointés.
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(850));
        QCOMPARE(t->Texte(LigneDe(2), 5), QStringLiteral("OUI"));
        QCOMPARE(t->CouleurTexte(LigneDe(2), 2), QColor(Qt::red));
        QCOMPARE(t->Texte(LigneDe(1), 5), QString());
        QCOMPARE(t->Texte(LigneDe(1), 3), essai::AfficheEuros(400));
        QCOMPARE(t->Texte(LigneDe(2), 4), essai::AfficheEuros(-100));
        // Pointer : la ligne à 1 tout de suite, son montant dans le solde théorique.
        QVERIFY(support::CliquerCellule(t, LigneDe(1), 2));
        QCOMPARE(Lettrage(1), 1);
        QCOMPARE(t->Texte(LigneDe(1), 5), QStringLiteral("OUI"));
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(1250));
        // Dépointer une ligne pointée : 0 tout de suite, le montant en sort.
        QVERIFY(support::CliquerCellule(t, LigneDe(2), 2));
        QCOMPARE(Lettrage(2), 0);
        QCOMPARE(t->Texte(LigneDe(2), 5), QString());
        QCOMPARE(t->CouleurTexte(LigneDe(2), 0), QColor(Qt::black));
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(1350));
    }

    void nonPointees_laLigneResteJusquAuProchainAffichage() {
        e = std::make_unique<ecran::Rappr>();
        e->show();
        Cliquer("Command6");
        QCOMPARE(Texte("Label1"),
                 QStringLiteral("Liste des écritures qui n'ont pas encore été pointées"));
        ui::Grille* t = Tree("Tree2");
        QCOMPARE(t->NombreLignes(), 2);
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(850)); // le même sur les trois listes
        QVERIFY(support::CliquerCellule(t, LigneDe(4), 0));
        QCOMPARE(t->Texte(LigneDe(4), 5), QStringLiteral("OUI"));
        QCOMPARE(t->NombreLignes(), 2);
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(850.5));
        Cliquer("Command6");
        QCOMPARE(t->NombreLignes(), 1);
        Cliquer("Command7");
        QCOMPARE(Texte("Label1"), QStringLiteral("Liste des écritures qui ont été pointées"));
        QCOMPARE(t->NombreLignes(), 3);
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(850.5));
    }

    // Retour, puis le même compte choisi : le solde théorique repart du solde de début, et
    // la liste suivante y rajoute le pointé.
    void retourPuisMemeCompte_soldeRepartDuDebut() {
        e = std::make_unique<ecran::Rappr>();
        e->show();
        Cliquer("Command1");
        Cliquer("Command2");
        QCOMPARE(Texte("Label1"), QStringLiteral("Sélectionner un compte"));
        QVERIFY(!Tree("Tree1")->isHidden());
        QVERIFY(Tree("Tree2")->isHidden());
        QVERIFY(e->findChild<QPushButton*>("Command1")->isEnabled());
        QVERIFY(support::CliquerCellule(Tree("Tree1"), 0, 1));
        QCOMPARE(e->SoldeTheorique, essai::Euros(1000));
        Cliquer("Command7");
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(850));
    }

    // Aucune ligne pointée : le solde théorique est le solde de début.
    void aucuneLignePointee_soldeDeDebut() {
        Ligne("5121", 20, 35);
        e = std::make_unique<ecran::Rappr>();
        e->show();
        QVERIFY(support::CliquerCellule(Tree("Tree1"), 1, 0));
        QCOMPARE(Texte("Label10"), QStringLiteral("5121"));
        Cliquer("Command1");
        QCOMPARE(Tree("Tree2")->NombreLignes(), 1);
        QCOMPARE(Texte("Label13"), essai::AfficheEuros(20));
    }

    void aide_contexte12() {
        e = std::make_unique<ecran::Rappr>();
        Cliquer("Command3");
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("12"));
    }

    void capture_pointage() {
        e = std::make_unique<ecran::Rappr>();
        e->show();
        QVERIFY(QTest::qWaitForWindowExposed(e.get()));
        Cliquer("Command1");
        const QImage image = e->grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("rappr.png")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestRappr test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_rappr.moc"
