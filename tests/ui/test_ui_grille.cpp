// Grille : colonnes, lignes et données, recherche, tri par les titres, couleurs, sélection,
// largeurs gardées, saisie dans une cellule avec validation qui refuse ou corrige.
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"
#include "ui/Boite.h"
#include "ui/EcranModal.h"
#include "ui/Grille.h"

#include <QDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

using ui::Grille;

namespace {

void CliquerTitre(Grille& g, int colonne) {
    QHeaderView* entete = g.header();
    const QPoint point(entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2,
                       entete->height() / 2);
    QTest::mouseClick(entete->viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

QStringList Colonne(const Grille& g, int colonne) {
    QStringList textes;
    for (int i = 0; i < g.NombreLignes(); ++i)
        textes << g.Texte(i, colonne);
    return textes;
}

// Grille montrée, avec trois comptes.
struct Essai {
    Grille g;
    Essai() {
        g.FixerColonnes({"Numéro", "Libellé", "Montant"});
        g.AjouterLigne({"512", "Banque", "10,00"}, 3.0);
        g.AjouterLigne({"401", "Fournisseurs", "0,00"}, 1.0);
        g.AjouterLigne({"607", "Achats", ""}, 2.0);
        g.resize(500, 300);
        g.show();
        g.activateWindow();
        g.setFocus();
    }
};

} // namespace

class TestGrille : public QObject {
    Q_OBJECT
private slots:
    void init() { support::RemettreServicesAZero(); }

    void colonnesLignesEtDonnees() {
        Grille g;
        g.FixerColonnes({"Numéro", "Libellé", "Solde"});
        QCOMPARE(g.NombreColonnes(), 3);
        QCOMPARE(g.Titre(2), QString("Solde"));
        QCOMPARE(g.AjouterLigne({"512", "Banque", "10,00"}, 512.0), 0);
        QCOMPARE(g.AjouterLigne({"", "", ""}, -1.0), 1);
        g.InsererLigne(0, {"101", "Capital", "0,00"}, QVariant(101.0));
        QCOMPARE(g.NombreLignes(), 3);
        QCOMPARE(g.Texte(0, 1), QString("Capital"));
        QCOMPARE(g.DonneeLigne(1).toDouble(), 512.0);
        QCOMPARE(g.DonneeLigne(2).toDouble(), -1.0);
        g.FixerTexte(1, 2, "20,00");
        QCOMPARE(g.Texte(1, 2), QString("20,00"));
        g.FixerDonneeLigne(1, 513.0);
        QCOMPARE(g.ChercherDonnee(513.0), 1);
        QCOMPARE(g.ChercherDonnee(999.0), -1);
        g.FixerDonneeCellule(1, 3 - 1, 42);
        QCOMPARE(g.DonneeCellule(1, 2).toInt(), 42);
        QVERIFY(!g.DonneeCellule(1, 1).isValid());
        QCOMPARE(g.ChercherTexte(0, "512"), 1);
        QCOMPARE(g.ChercherTexte(0, "999"), -1);
        QCOMPARE(g.Texte(7, 0), QString());
        QVERIFY(!g.DonneeLigne(-1).isValid());
        g.SupprimerLigne(0);
        QCOMPARE(g.NombreLignes(), 2);
        QCOMPARE(g.Texte(0, 0), QString("512"));
        g.Vider();
        QCOMPARE(g.NombreLignes(), 0);
        QCOMPARE(g.LigneCourante(), -1);
    }

    void ordreDAjoutGardeSansTri() {
        Essai e;
        QCOMPARE(Colonne(e.g, 0), QStringList({"512", "401", "607"}));
    }

    void clicSurUnTitreTrieEtUnSecondInverse() {
        Essai e;
        CliquerTitre(e.g, 1);
        QCOMPARE(Colonne(e.g, 1), QStringList({"Achats", "Banque", "Fournisseurs"}));
        QCOMPARE(e.g.DonneeLigne(0).toDouble(), 2.0);
        CliquerTitre(e.g, 1);
        QCOMPARE(Colonne(e.g, 1), QStringList({"Fournisseurs", "Banque", "Achats"}));
        CliquerTitre(e.g, 0);
        QCOMPARE(Colonne(e.g, 0), QStringList({"401", "512", "607"}));
    }

    void colonneNonTriableGardeLOrdre() {
        Essai e;
        e.g.FixerColonneTriable(2, false);
        CliquerTitre(e.g, 2);
        QCOMPARE(Colonne(e.g, 0), QStringList({"512", "401", "607"}));
    }

    void trierParProgramme() {
        Essai e;
        e.g.Trier(0);
        QCOMPARE(Colonne(e.g, 0), QStringList({"401", "512", "607"}));
        QCOMPARE(e.g.ChercherDonnee(3.0), 1);
        e.g.Trier(0, Qt::DescendingOrder);
        QCOMPARE(Colonne(e.g, 0), QStringList({"607", "512", "401"}));
        e.g.Trier(9); // colonne inexistante : rien
        QCOMPARE(Colonne(e.g, 0), QStringList({"607", "512", "401"}));
    }

    void couleurs() {
        Essai e;
        e.g.FixerCouleurLigne(1, Qt::red);
        QCOMPARE(e.g.CouleurTexte(1, 0), QColor(Qt::red));
        QCOMPARE(e.g.CouleurTexte(1, 2), QColor(Qt::red));
        QVERIFY(!e.g.CouleurFond(1, 0).isValid());
        e.g.FixerCouleurCellule(2, 1, QColor(), Qt::yellow);
        QCOMPARE(e.g.CouleurFond(2, 1), QColor(Qt::yellow));
        QVERIFY(!e.g.CouleurTexte(0, 0).isValid());
        // La couleur suit la ligne au tri.
        e.g.Trier(0);
        QCOMPARE(e.g.CouleurTexte(0, 0), QColor(Qt::red));
    }

    void selectionSimpleEtMultiple() {
        Essai e;
        support::CliquerCellule(&e.g, 1, 0);
        QCOMPARE(e.g.LigneCourante(), 1);
        QCOMPARE(e.g.LignesSelectionnees(), QList<int>({1}));
        e.g.FixerLigneCourante(2);
        QCOMPARE(e.g.LigneCourante(), 2);
        QCOMPARE(e.g.LignesSelectionnees(), QList<int>({2}));
        e.g.FixerMultiSelection(true);
        e.g.SelectionnerLigne(0, true);
        QCOMPARE(e.g.LignesSelectionnees(), QList<int>({0, 2}));
        QVERIFY(e.g.EstSelectionnee(0));
        e.g.SelectionnerLigne(2, false);
        QCOMPARE(e.g.LignesSelectionnees(), QList<int>({0}));
        e.g.RendreVisible(2);
        e.g.FixerLigneCourante(-1);
        QCOMPARE(e.g.LigneCourante(), -1);
    }

    void largeursGardeesDansLesReglages() {
        support::DossierEssai dossier;
        QSettings reglages(dossier.Fichier("reglages.ini"), QSettings::IniFormat);
        Essai e;
        e.g.FixerLargeurColonne(0, 80);
        e.g.FixerLargeurColonne(1, 210);
        e.g.FixerLargeurColonne(2, 95);
        e.g.SauverLargeurs(reglages, "BalanceTree1");
        QCOMPARE(reglages.value("BalanceTree1/col1").toString(), QString("210"));
        Essai autre;
        autre.g.FixerLargeurColonne(0, 50);
        autre.g.RestaurerLargeurs(reglages, "BalanceTree1");
        QCOMPARE(autre.g.LargeurColonne(0), 80);
        QCOMPARE(autre.g.LargeurColonne(1), 210);
        QCOMPARE(autre.g.LargeurColonne(2), 95);
    }

    void largeurVideOuIllisibleGardeCelleDOrigine() {
        support::DossierEssai dossier;
        QSettings reglages(dossier.Fichier("reglages.ini"), QSettings::IniFormat);
        reglages.setValue("JournalTree1/col0", "vide");
        reglages.setValue("JournalTree1/col1", "n'importe quoi");
        Essai e;
        e.g.FixerLargeurColonne(0, 77);
        e.g.FixerLargeurColonne(1, 88);
        e.g.RestaurerLargeurs(reglages, "JournalTree1");
        QCOMPARE(e.g.LargeurColonne(0), 77);
        QCOMPARE(e.g.LargeurColonne(1), 88);
    }

    void saisieValideeParEntreeAvecTexteCorrige() {
        Essai e;
        QList<QString> vus;
        e.g.FixerValidation([&](int ligne, int colonne, QString& texte) {
            vus << QString("%1,%2:%3").arg(ligne).arg(colonne).arg(texte);
            texte.replace('.', ',');
            texte += "0";
            return Grille::Validation::Accepter;
        });
        QSignalSpy validees(&e.g, &Grille::celluleValidee);
        QVERIFY(e.g.EditerCellule(1, 2));
        QVERIFY(e.g.EditionOuverte());
        QCOMPARE(e.g.LigneEditee(), 1);
        QCOMPARE(e.g.ColonneEditee(), 2);
        auto* editeur = qobject_cast<QLineEdit*>(e.g.Editeur());
        QVERIFY(editeur);
        QCOMPARE(editeur->text(), QString("0,00"));
        QVERIFY(support::TaperDansCellule(&e.g, "12.5"));
        QVERIFY(!e.g.EditionOuverte());
        QCOMPARE(vus, QList<QString>({"1,2:12.5"}));
        QCOMPARE(e.g.Texte(1, 2), QString("12,50"));
        QCOMPARE(validees.size(), 1);
        QCOMPARE(validees[0][2].toString(), QString("12,50"));
    }

    void validationQuiRefuseGardeLEditeurOuvert() {
        Essai e;
        int appels = 0;
        e.g.FixerValidation([&](int, int, QString& texte) {
            ++appels;
            return texte.trimmed().isEmpty() ? Grille::Validation::GarderOuvert
                                             : Grille::Validation::Accepter;
        });
        QVERIFY(e.g.EditerCellule(2, 2));
        auto* editeur = qobject_cast<QLineEdit*>(e.g.Editeur());
        QVERIFY(!support::TaperDansCellule(&e.g, ""));
        QCOMPARE(appels, 1);
        QVERIFY(e.g.EditionOuverte());
        QCOMPARE(e.g.Editeur(), editeur);
        QCOMPARE(e.g.Texte(2, 2), QString(""));
        support::TaperCaracteres(editeur, "7");
        QVERIFY(e.g.ValiderEdition());
        QCOMPARE(appels, 2);
        QVERIFY(!e.g.EditionOuverte());
        QCOMPARE(e.g.Texte(2, 2), QString("7"));
    }

    void echapAnnuleSansValidation() {
        Essai e;
        int appels = 0;
        e.g.FixerValidation([&](int, int, QString&) {
            ++appels;
            return Grille::Validation::Accepter;
        });
        QVERIFY(e.g.EditerCellule(0, 2));
        QVERIFY(support::TaperDansCellule(&e.g, "99", Qt::Key_Escape));
        QVERIFY(!e.g.EditionOuverte());
        QCOMPARE(appels, 0);
        QCOMPARE(e.g.Texte(0, 2), QString("10,00"));
        // AnnulerEdition fait de même.
        QVERIFY(e.g.EditerCellule(0, 2));
        e.g.AnnulerEdition();
        QVERIFY(!e.g.EditionOuverte());
        QVERIFY(!e.g.ValiderEdition());
    }

    void validationOuvreUneAutreCelluleApresLaFermeture() {
        Essai e;
        e.g.FixerValidation([&](int ligne, int colonne, QString& texte) {
            // Une saisie à zéro passe à l'autre colonne de la même ligne.
            if (texte == "0" && colonne == 2) {
                texte.clear();
                e.g.EditerCellule(ligne, 1);
            }
            return Grille::Validation::Accepter;
        });
        QVERIFY(support::SaisirCellule(&e.g, 0, 2, "0"));
        QCOMPARE(e.g.Texte(0, 2), QString(""));
        QVERIFY(e.g.EditionOuverte());
        QCOMPARE(e.g.LigneEditee(), 0);
        QCOMPARE(e.g.ColonneEditee(), 1);
        e.g.AnnulerEdition();
    }

    void touchesHorsEditionSignalees() {
        Essai e;
        QSignalSpy touches(&e.g, &Grille::touche);
        e.g.FixerLigneCourante(0);
        QTest::keyClick(&e.g, Qt::Key_Return);
        QTest::keyClick(&e.g, Qt::Key_Delete);
        QCOMPARE(touches.size(), 2);
        QCOMPARE(touches[0][0].toInt(), int(Qt::Key_Return));
        QCOMPARE(touches[1][0].toInt(), int(Qt::Key_Delete));
        QVERIFY(!e.g.EditionOuverte());
    }

    void clicSurUneLigneOuvreLaCelluleQueLEcranChoisit() {
        Essai e;
        // Comme les écrans de saisie : un clic ouvre la cellule "Montant" de la ligne.
        connect(&e.g, &Grille::ligneCliquee, &e.g,
                [&](int ligne, int) { e.g.EditerCellule(ligne, 2); });
        QVERIFY(support::CliquerCellule(&e.g, 2, 0));
        QVERIFY(e.g.EditionOuverte());
        QCOMPARE(e.g.LigneEditee(), 2);
        QCOMPARE(e.g.ColonneEditee(), 2);
        QVERIFY(support::TaperDansCellule(&e.g, "1 234,5"));
        QCOMPARE(e.g.Texte(2, 2), QString("1 234,5"));
    }

    // La validation montre une vraie boîte pendant que l'éditeur est ouvert : le pilote
    // y répond, la cellule prend le texte corrigé.
    void validationAvecBoiteDansUnEcranPilote() {
        ui::EcranModal ecran;
        ecran.setObjectName("SaisQuad");
        auto* g = new Grille(&ecran);
        g->setObjectName("Tree1");
        (new QVBoxLayout(&ecran))->addWidget(g);
        g->FixerColonnes({"Numéro", "Libellé", "Montant"});
        g->AjouterLigne({"607", "Achats", ""}, 1.0);
        g->FixerValidation([](int, int, QString& texte) {
            bool nombre = false;
            texte.toDouble(&nombre);
            if (!nombre) {
                ui::Boite("Votre saisie n'est pas conforme, Recommencez", "Maroval",
                          ui::Icone::Exclamation);
                texte = "0,00";
            }
            return Grille::Validation::Accepter;
        });
        connect(g, &Grille::ligneCliquee, g, [g](int ligne, int) { g->EditerCellule(ligne, 2); });
        QString apres;
        support::PiloteModal pilote;
        pilote
            .Attendre("SaisQuad", support::Suite({support::CliquerCelluleDe("Tree1", 0, 1),
                                                  support::TaperDansCelluleDe("Tree1", "abc")}))
            .AttendreBoite("Votre saisie n'est pas conforme, Recommencez", "OK")
            .Attendre("SaisQuad", [&](QWidget* w) {
                apres = g->Texte(0, 2);
                static_cast<ui::EcranModal*>(w)->Retour();
            });
        pilote.Demarrer();
        ecran.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(apres, QString("0,00"));
        QVERIFY(!g->EditionOuverte());
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Exclamation);
    }

    void refusAvecBoiteGardeLEditeurOuvertPuisAccepte() {
        ui::EcranModal ecran;
        ecran.setObjectName("Prembil");
        auto* g = new Grille(&ecran);
        g->setObjectName("Tree1");
        (new QVBoxLayout(&ecran))->addWidget(g);
        g->FixerColonnes({"Numéro", "Libellé", "Solde Début"});
        g->AjouterLigne({"512", "Banque", "0,00"});
        g->FixerValidation([](int, int, QString& texte) {
            if (!texte.isEmpty()) return Grille::Validation::Accepter;
            ui::Boite("Entrez un montant SVP.");
            return Grille::Validation::GarderOuvert;
        });
        bool ouvertApresBoite = false;
        support::PiloteModal pilote;
        pilote
            .Attendre("Prembil",
                      [g](QWidget*) {
                          g->EditerCellule(0, 2);
                          support::TaperDansCellule(g, "");
                      })
            .AttendreBoite("Entrez un montant SVP.", "OK")
            .Attendre("Prembil", [&](QWidget* w) {
                ouvertApresBoite = g->EditionOuverte() && g->ColonneEditee() == 2;
                support::TaperDansCellule(g, "150");
                static_cast<ui::EcranModal*>(w)->Retour();
            });
        pilote.Demarrer();
        ecran.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(ouvertApresBoite);
        QCOMPARE(g->Texte(0, 2), QString("150"));
    }

    void entreeDansLaGrilleNActionnePasLeBoutonParDefaut() {
        QDialog ecran;
        auto* g = new Grille(&ecran);
        auto* ok = new QPushButton("&OK", &ecran);
        ok->setDefault(true);
        auto* disposition = new QVBoxLayout(&ecran);
        disposition->addWidget(g);
        disposition->addWidget(ok);
        g->FixerColonnes({"Numéro"});
        g->AjouterLigne({"512"});
        int clics = 0;
        connect(ok, &QPushButton::clicked, [&] { ++clics; });
        QSignalSpy touches(g, &Grille::touche);
        ecran.show();
        g->setFocus();
        g->FixerLigneCourante(0);
        QTest::keyClick(g, Qt::Key_Return);
        QCOMPARE(touches.size(), 1);
        QCOMPARE(clics, 0);
        QVERIFY(ecran.isVisible());
    }

    void viderPendantUneEditionFermeLEditeur() {
        Essai e;
        QVERIFY(e.g.EditerCellule(1, 1));
        e.g.Vider();
        QVERIFY(!e.g.EditionOuverte());
        QCOMPARE(e.g.NombreLignes(), 0);
        QVERIFY(!e.g.EditerCellule(0, 0));
    }
};

QTEST_MAIN(TestGrille)
#include "test_ui_grille.moc"
