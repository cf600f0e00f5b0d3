// Lettrage manuel par l'écran Tresor02 : choix des lignes jusqu'à l'équilibre, validation,
// solde de début lettré en entier ou en partie, refus du partiel, couleurs des lignes déjà
// lettrées, filtres des comptes et des lignes, lettrage automatique d'un compte, délettrage.
#include "EssaiTresor.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"

#include "treasury/Tresor02.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

using namespace tresor_essai;
using ui::Reponse;

class TestLettrageManuel : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<ecran::Tresor02> e;

    ui::Grille* Tree(const char* nom) { return e->findChild<ui::Grille*>(nom); }
    QString Texte(const char* nom) { return e->findChild<QLabel*>(nom)->text(); }
    QPushButton* Bouton(const char* nom) { return e->findChild<QPushButton*>(nom); }
    void Cocher(const char* nom) { e->findChild<QRadioButton*>(nom)->click(); }

    // Ouvre l'écran et choisit ce compte dans la liste.
    void Ouvrir(const QString& compte) {
        e = std::make_unique<ecran::Tresor02>();
        e->show();
        QVERIFY(QTest::qWaitForWindowExposed(e.get()));
        ChoisirCompte(compte);
    }
    void ChoisirCompte(const QString& compte) {
        ui::Grille* t = Tree("Tree1");
        const int ligne = t->ChercherTexte(0, compte);
        QVERIFY2(ligne >= 0, qPrintable(compte));
        QVERIFY(support::CliquerCellule(t, ligne, 0));
    }
    // Clic sur la ligne de ce numéro d'écriture.
    void Cliquer(double numero) {
        ui::Grille* t = Tree("Tree2");
        const int ligne = t->ChercherTexte(0, QString::number(numero));
        QVERIFY2(ligne >= 0, qPrintable(QString::number(numero)));
        QVERIFY(support::CliquerCellule(t, ligne, 3));
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        Livres(dossier->Chemin());
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        e.reset();
        FermerBase();
        dossier.reset();
    }

    void ouverture_clientsAvecLeursColonnes() {
        Ligne("411001", 1, 80);
        FixerCompte("411001", 0, 80);
        Ouvrir("411001");
        QCOMPARE(e->windowTitle(), QStringLiteral("Lettrage manuel des comptes clients"));
        QCOMPARE(Tree("Tree1")->Titre(6), QStringLiteral("Solde Crédit"));
        QCOMPARE(Tree("Tree2")->Titre(2), QStringLiteral("Echéance"));
        QCOMPARE(Tree("Tree2")->NombreLignes(), 1);
        QVERIFY(e->findChild<QGroupBox*>("Frame5")->isHidden());
        QVERIFY(!Bouton("CLettrer")->isEnabled());
        Cocher("BRFournisseurs");
        QCOMPARE(e->windowTitle(), QStringLiteral("Lettrage manuel des comptes fournisseurs"));
        QCOMPARE(e->MenuTiers, 160);
    }

    // 80,00 et -80,00 sans solde de début : Lettrer s'ouvre, les deux lignes prennent 1.
    void factureEtReglement_lettresA1() {
        Ligne("411001", 1, 80);
        Ligne("411001", 2, -80);
        Ligne("411001", 3, 25);
        FixerCompte("411001", 0, 25);
        Ouvrir("411001");
        Cliquer(1);
        QCOMPARE(Texte("LCumFact"), essai::AfficheEuros(80));
        QCOMPARE(Tree("Tree2")->CouleurFond(0, 0), QColor(Qt::darkRed));
        QVERIFY(!Bouton("CLettrer")->isEnabled());
        Cliquer(2);
        QCOMPARE(Texte("LCumRegl"), essai::AfficheEuros(-80));
        QCOMPARE(Texte("LDIFF"), essai::AfficheEuros(0));
        QVERIFY(Bouton("CLettrer")->isEnabled());
        QVERIFY(!e->findChild<QGroupBox*>("Frame4")->isHidden());
        QVERIFY(!Tree("Tree2")->isEnabled());
        QTest::mouseClick(Bouton("CLettrer"), Qt::LeftButton);
        QCOMPARE(Lettrages({1, 2, 3}), (QList<int>{1, 1, 0}));
        QCOMPARE(Tree("Tree2")->NombreLignes(), 1);
        QVERIFY(Tree("Tree2")->isEnabled());
        QVERIFY(!Bouton("CLettrer")->isEnabled());
        QVERIFY(e->findChild<QGroupBox*>("Frame4")->isHidden());
    }

    // Un second clic rend la ligne et retire son montant.
    void secondClic_deselectionne() {
        Ligne("411001", 1, 80);
        FixerCompte("411001", 0, 80);
        Ouvrir("411001");
        Cliquer(1);
        Cliquer(1);
        QCOMPARE(e->EtatLigne(0), 0);
        QCOMPARE(Texte("LCumFact"), essai::AfficheEuros(0));
        QCOMPARE(Tree("Tree2")->CouleurFond(0, 0), QColor(Qt::white));
    }

    // Solde de début 300,00 : un règlement de -300,00 le solde (T = 0), la ligne prend 2.
    void soldeDebutEntier_marque2() {
        Ligne("411001", 1, -300);
        FixerCompte("411001", 300, 0);
        // Soldé, le compte ne se voit qu'avec tous les comptes.
        e = std::make_unique<ecran::Tresor02>();
        e->show();
        QCOMPARE(Tree("Tree1")->ChercherTexte(0, "411001"), -1);
        Cocher("BRTousCpt");
        ChoisirCompte("411001");
        QCOMPARE(Texte("LSde"), essai::AfficheEuros(300));
        QVERIFY(!e->findChild<QGroupBox*>("Frame5")->isHidden());
        Cliquer(1);
        QVERIFY(Bouton("CLettrer")->isEnabled());
        QTest::mouseClick(Bouton("CLettrer"), Qt::LeftButton);
        QCOMPARE(Lettrage(1), 2);
        QCOMPARE(Texte("LSde"), essai::AfficheEuros(0));
        QVERIFY(e->findChild<QGroupBox*>("Frame5")->isHidden());
    }

    // Solde de début 300,00 et 40,00 / -40,00 : S = 0, lettrage 1 car T vaut 300,00.
    void soldeDebutEtPaireEquilibree_marque1() {
        Ligne("411001", 1, 40);
        Ligne("411001", 2, -40);
        FixerCompte("411001", 300, 300);
        Ouvrir("411001");
        Cliquer(1);
        Cliquer(2);
        QVERIFY(Bouton("CLettrer")->isEnabled());
        QTest::mouseClick(Bouton("CLettrer"), Qt::LeftButton);
        QCOMPARE(Lettrages({1, 2}), (QList<int>{1, 1}));
    }

    // Partiel : -100,00 prend 2 et le reste devient 200,00 ; 50,00 est refusé (R = 350,00).
    void partiel_acceptePuisRefuse() {
        Ligne("411001", 1, -100);
        Ligne("411001", 2, 50);
        FixerCompte("411001", 300, 250);
        Ouvrir("411001");
        Cliquer(2);
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Les écritures sélectionnées ne peuvent lettrer le Solde Début."});
        QCOMPARE(Lettrage(2), 0);
        Cliquer(2); // rendue
        Cliquer(1);
        QTest::mouseClick(Bouton("Command1"), Qt::LeftButton);
        QCOMPARE(Lettrage(1), 2);
        QCOMPARE(Texte("LSde"), essai::AfficheEuros(200));
        QVERIFY(!e->findChild<QGroupBox*>("Frame5")->isHidden());
    }

    // Partiel de -450,00 sur 300,00 : R = 150,00 est accepté, le reste devient -150,00.
    void partielAuDela_resteNegatif() {
        Ligne("411001", 1, -450);
        FixerCompte("411001", 300, -150);
        Ouvrir("411001");
        Cliquer(1);
        QTest::mouseClick(Bouton("Command1"), Qt::LeftButton);
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Lettrage(1), 2);
        QCOMPARE(Texte("LSde"), essai::AfficheEuros(-150));
    }

    // Toutes les écritures : les lettrées en couleur (bleu, vert pour 2, 255 comme 1), et un
    // clic sur elles ne change rien.
    void toutesLesEcritures_couleursEtClicSansEffet() {
        Ligne("411001", 1, 80, 1);
        Ligne("411001", 2, -80, 255);
        Ligne("411001", 3, -30, 2);
        Ligne("411001", 4, 15);
        FixerCompte("411001", 30, 15);
        Ouvrir("411001");
        QCOMPARE(Tree("Tree2")->NombreLignes(), 1);
        Cocher("BRTtesEcr");
        ui::Grille* t = Tree("Tree2");
        QCOMPARE(t->NombreLignes(), 4);
        QCOMPARE(t->CouleurTexte(0, 5), QColor(Qt::blue));
        QCOMPARE(t->CouleurTexte(1, 0), QColor(Qt::blue));
        QCOMPARE(t->CouleurTexte(2, 3), QColor(Qt::darkGreen));
        QCOMPARE(e->EtatLigne(1), -1);
        Cliquer(1);
        QCOMPARE(e->EtatLigne(0), -1);
        QCOMPARE(Texte("LCumFact"), QString());
        QCOMPARE(Texte("LSde"), essai::AfficheEuros(0));
    }

    // Un compte sans montant n'apparaît jamais ; un compte soldé seulement avec tous les
    // comptes, même avec des lignes ouvertes.
    void filtresDesComptes() {
        Ligne("411002", 1, 50);
        Ligne("411002", 2, -50);
        FixerCompte("411002", 0, 0);
        e = std::make_unique<ecran::Tresor02>();
        ui::Grille* t = Tree("Tree1");
        QCOMPARE(t->ChercherTexte(0, "411002"), -1);
        QCOMPARE(t->ChercherTexte(0, "411003"), -1);
        Cocher("BRTousCpt");
        QVERIFY(t->ChercherTexte(0, "411002") >= 0);
        QCOMPARE(t->ChercherTexte(0, "411003"), -1);
        // Le solde dans la colonne de son sens, signé.
        FixerCompte("411003", 0, -12.5);
        Cocher("BRCptALettrer");
        const int ligne = t->ChercherTexte(0, "411003");
        QVERIFY(ligne >= 0);
        QCOMPARE(t->Texte(ligne, 5), QString());
        QCOMPARE(t->Texte(ligne, 6), essai::AfficheEuros(-12.5));
        QCOMPARE(t->Texte(ligne, 3), essai::AfficheEuros(0.0001)); // CumD posé à un dix-millième
    }

    // Lettrage Auto sur le compte choisi, sans la phase des comptes soldés.
    void lettrageAutoDUnCompte() {
        Ligne("411001", 1, 120);
        Ligne("411001", 2, -70);
        Ligne("411001", 3, -50);
        Ligne("411001", 4, 9);
        Ligne("411001", 5, -9);
        FixerCompte("411001", 0, 0.0001);
        Ouvrir("411001");
        QTest::mouseClick(Bouton("Command2"), Qt::LeftButton);
        QCOMPARE(Lettrages({1, 2, 3, 4, 5}), (QList<int>{0, 0, 0, 1, 1}));
        QCOMPARE(Tree("Tree2")->NombreLignes(), 3);
    }

    // DéLettrage d'un compte (Non ne fait rien) ; TOUT Dé-Lettrer sur les comptes listés.
    void delettrage_compteEtTous() {
        Ligne("411001", 1, 80, 1);
        Ligne("411001", 2, -30, 2);
        Ligne("411001", 3, 5);
        Ligne("411002", 4, 10, 1);
        Ligne("411002", 5, 7);
        Ligne("401001", 6, 10, 1);
        Ligne("401001", 7, 8);
        FixerCompte("411001", 30, 5);
        FixerCompte("411002", 0, 7);
        FixerCompte("401001", 0, 8);
        Ouvrir("411001");
        const QString question =
            QStringLiteral("Ce bouton va supprimer le lettrage de toutes les écritures du compte "
                           "sélectionné.\n\nVoulez-vous continuer ?");
        ui::RepondreBoite(Reponse::Non);
        QTest::mouseClick(Bouton("CDelettrer"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(), QStringList{question});
        QCOMPARE(Lettrages({1, 2}), (QList<int>{1, 2}));
        ui::RepondreBoite(Reponse::Oui);
        QTest::mouseClick(Bouton("CDelettrer"), Qt::LeftButton);
        QCOMPARE(Lettrages({1, 2, 4}), (QList<int>{0, 0, 1}));
        QCOMPARE(Tree("Tree2")->NombreLignes(), 3);

        ui::ViderJournalBoites();
        ui::RepondreBoite(Reponse::Oui);
        QTest::mouseClick(Bouton("CTtDeletter"), Qt::LeftButton);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Ce bouton va supprimer le lettrage de TOUTES les écritures de TOUS "
                             "les comptes sélectionnés.\n\nVoulez-vous continuer ?"});
        QCOMPARE(Lettrages({4, 6}), (QList<int>{0, 1})); // les fournisseurs ne sont pas listés
    }

    void capture_lignesEnCouleurs() {
        Ligne("411001", 1, 80, 1);
        Ligne("411001", 2, -80, 1);
        Ligne("411001", 3, -30, 2);
        Ligne("411001", 4, 145.5, 0, "20240415");
        Ligne("411001", 5, -45.5);
        Ligne("411001", 6, 60, 0, "20240510");
        FixerCompte("411001", 30, 160);
        Ouvrir("411001");
        Cocher("BRTtesEcr");
        Cliquer(4);
        QImage image = e->grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("tresor02.png")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestLettrageManuel test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_lettrage_manuel.moc"
