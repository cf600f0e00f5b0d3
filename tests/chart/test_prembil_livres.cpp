// Une entreprise qui arrive en cours de vie, par les écrans : plan standard pris en entier,
// un client et un fournisseur créés, une facture passée, le bilan d'ouverture tapé (les
// collectifs 410 et 400 suivent), clos, relu en consultation seule ; d'autres écritures
// ensuite, et la vérification des livres est bonne.

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "chart/Plan2.h"
#include "chart/Prembil.h"
#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <memory>

using namespace essai;
using ui::Reponse;

class TestPrembilLivres : public QObject {
    Q_OBJECT
    CadreEssai cadre;

    static void NouveauTiers(QWidget* plan, const char* option, const QString& nom,
                             const QString& libelle) {
        CliquerOption(plan, option);
        auto* numero = plan->findChild<QLineEdit*>("Mnumero");
        support::TaperCaracteres(numero, nom);
        QTest::keyClick(numero, Qt::Key_Tab);
        support::TaperTexte(plan, "EDlibelle", libelle);
        support::CliquerBouton(plan, "Command8");
    }
    static bool Saisir(ui::Grille* g, const QString& numero, const QString& montant) {
        const int ligne = g->ChercherTexte(0, numero);
        if (ligne < 0) return false;
        support::CliquerCellule(g, ligne, 2);
        return g->EditionOuverte() && support::TaperDansCellule(g, montant);
    }

private slots:
    void init() { cadre.Ouvrir(); }
    void cleanup() { cadre.Fermer(); }

    void ouvertureEnCoursDeVie_livresVerifies() {
        // Le plan : le plan standard du commerce, un client, un fournisseur.
        {
            auto plan = MontrerEcran<ecran::Plan2>();
            support::ChoisirLigneListe(plan.get(), "List1", 0);
            ui::RepondreBoite(Reponse::Oui);
            support::CliquerBouton(plan.get(), "Command1");
            support::CliquerBouton(plan.get(), "Command5");
            NouveauTiers(plan.get(), "BRclient", "DUPONT", "Dupont SA");
            NouveauTiers(plan.get(), "BRfournisseur", "BOIS", "Bois et fils");
            support::CliquerBouton(plan.get(), "Command4");
        }
        QVERIFY(CompteExiste("41DUPONT"));
        QVERIFY(CompteExiste("40BOIS"));
        QVERIFY(CompteExiste("410"));
        QVERIFY(CompteExiste("400"));
        QCOMPARE(ui::JournalBoites().size(), 1); // la confirmation de la copie du plan
        ui::ViderJournalBoites();

        // Une facture passée avant que le bilan d'ouverture ne soit tapé.
        Passer(
            "10/01/2024",
            {{"41DUPONT", "D", Euros(240)}, {"7071", "C", Euros(200)}, {"445711", "C", Euros(40)}},
            "V");

        {
            auto bilan = MontrerEcran<ecran::Prembil>();
            auto* actif = bilan->findChild<ui::Grille*>("Tree1");
            auto* passif = bilan->findChild<ui::Grille*>("Tree2");
            QVERIFY(Saisir(actif, "512", "5000"));
            QVERIFY(Saisir(actif, "2182", "3000"));
            QVERIFY(Saisir(actif, "41DUPONT", "1 200"));
            QVERIFY(Saisir(actif, "370", "800"));
            QVERIFY(Saisir(actif, "28182", "-600"));
            QVERIFY(Saisir(passif, "40BOIS", "700"));
            QVERIFY(Saisir(passif, "164", "2000"));
            QVERIFY(!bilan->findChild<QPushButton*>("Command1")->isEnabled());
            QVERIFY(Saisir(passif, "101", "6700"));
            QCOMPARE(bilan->findChild<QLabel*>("Label3")->text(), QStringLiteral("9 400,00 E"));
            QCOMPARE(bilan->findChild<QLabel*>("Label4")->text(), QStringLiteral("9 400,00 E"));
            QVERIFY2(ui::JournalBoites().isEmpty(), qPrintable(TextesBoites().join("|")));
            ui::RepondreBoite(Reponse::Oui);
            ui::RepondreBoite(Reponse::OK);
            support::CliquerBouton(bilan.get(), "Command1");
        }
        QVERIFY(Constante().OuvertureClos);
        QCOMPARE(LireCpt("410").Sde, Euros(1200));
        QCOMPARE(LireCpt("410").Solde, Euros(1440));
        QCOMPARE(LireCpt("400").Sde, Euros(700));
        QCOMPARE(Constante().SDE1, Euros(9400));
        QCOMPARE(Constante().SDR1, Euros(9400));
        // Les comptes que seul le bilan d'ouverture a touchés : aucun mouvement, le solde est
        // le solde de début ; un compte jamais touché est à zéro partout.
        const QList<QPair<QString, Montant>> ouverts = {
            {"512", Euros(5000)},   {"2182", Euros(3000)}, {"370", Euros(800)},
            {"28182", Euros(-600)}, {"164", Euros(2000)},  {"101", Euros(6700)},
            {"2183", Montant()}};
        for (const auto& [numero, sde] : ouverts) {
            QVERIFY2(CompteExiste(numero), qPrintable(numero));
            const table::Compte c = LireCpt(numero);
            QVERIFY2(c.CumD.estNul() && c.CumC.estNul(), qPrintable(numero));
            QCOMPARE(c.Sde, sde);
            QCOMPARE(c.Solde, c.Sde);
        }

        // Relu : consultation seule, les montants sont là.
        {
            auto bilan = MontrerEcran<ecran::Prembil>();
            auto* actif = bilan->findChild<ui::Grille*>("Tree1");
            QCOMPARE(actif->Texte(actif->ChercherTexte(0, "41DUPONT"), 2),
                     QStringLiteral("1 200,00 E"));
            support::CliquerCellule(actif, 0, 2);
            QVERIFY(!actif->EditionOuverte());
            QVERIFY(!bilan->findChild<QPushButton*>("Command1")->isEnabled());
            support::CliquerBouton(bilan.get(), "Command2");
        }
        {
            auto plan = MontrerEcran<ecran::Plan2>();
            QCOMPARE(plan->findChild<QPushButton*>("Command9")->text(),
                     QStringLiteral("Consultation du Bilan d'Ouverture"));
        }

        // La vie continue : règlement du client, facture du fournisseur.
        Passer("15/02/2024", {{"512", "D", Euros(240)}, {"41DUPONT", "C", Euros(240)}}, "T");
        Passer("20/02/2024",
               {{"607", "D", Euros(100)}, {"44566", "D", Euros(20)}, {"40BOIS", "C", Euros(120)}},
               "A");
        QCOMPARE(LireCpt("410").Solde, Euros(1200));
        QCOMPARE(LireCpt("400").Solde, Euros(820));
        QVERIFY2(Verification(), LireFichier(cadre.dossier->Fichier("verif.txt")).constData());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPrembilLivres t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_prembil_livres.moc"
