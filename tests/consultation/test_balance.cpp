// Balances : les trois choix, les lignes tirées des cumuls (comptes sans montant absents),
// la colonne du solde selon le côté naturel, les totaux égaux à ceux de la vérification
// des livres, la ligne du collectif, la ligne d'information, le détail d'un compte au double
// clic, les octets de l'export.

#include "EssaiConsultation.h"
#include "support/GestesGrille.h"

#include "consultation/Balance.h"
#include "posting/Verification.h"
#include "session/Session.h"
#include "ui/Application.h"

#include <QHeaderView>
#include <QPushButton>
#include <QRadioButton>

using namespace essai;

class TestBalance : public QObject {
    Q_OBJECT
    BancConsultation banc;

private slots:
    void initTestCase() { banc.Preparer(&LivresBoutique); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() { banc.Debut(); }
    void cleanup() {
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void ouverture_videEnAttenteDuChoix() {
        auto e = MontrerEcran<ecran::Balance>();
        QCOMPARE(e->objectName(), QStringLiteral("Balance"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Balance"));
        const QStringList titres = {"Numéro",       "Libellé",     "Solde début", "Total Débit",
                                    "Total Crédit", "Solde Débit", "Solde Crédit"};
        QCOMPARE(Titres(Grille(e.get(), "Tree1")), titres);
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 0);
        QCOMPARE(Grille(e.get(), "Tree2")->NombreLignes(), 0);
        QCOMPARE(e->findChild<QRadioButton*>("BRCompl")->text(), T("Balance générale"));
        QCOMPARE(e->findChild<QRadioButton*>("BRClient")->text(), T("Balance des clients"));
        QCOMPARE(e->findChild<QRadioButton*>("BRFourn")->text(), T("Balance des fournisseurs"));
        QCOMPARE(e->findChild<QGroupBox*>("Frame1")->title(), T("Choisissez une balance"));
        auto* aide = e->findChild<QWidget*>("BoiteAide1");
        QVERIFY(aide);
        QVERIFY(aide->property("MessageAide")
                    .toString()
                    .startsWith(T("Double-cliquez sur un compte pour le consulter.|Vous pouvez "
                                  "changer la taille de "
                                  "cet écran.|")));
    }

    void generale_lignesColonnesEtTotaux() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        const QList<QStringList> attendu = {
            {"101", "Capital", "1 000,00 E", "", "", "", "1 000,00 E"},
            {"400", "Fournisseurs collectif", "0,00 E", "-250,00 E", "200,00 E", "-50,00 E", ""},
            {"410", "Clients collectif", "0,00 E", "170,00 E", "-80,00 E", "90,00 E", ""},
            {"512", "Banque", "1 000,00 E", "130,00 E", "-300,00 E", "830,00 E", ""},
            // Mouvements qui s'annulent : 0 du côté naturel du compte.
            {"530", "Caisse", "0,00 E", "40,00 E", "-40,00 E", "0,00 E", ""},
            {"607", "Achats", "0,00 E", "200,00 E", "", "200,00 E", ""},
            {"707", "Ventes", "0,00 E", "", "170,00 E", "", "170,00 E"},
            {"708", "Ventes annexes", "0,00 E", "-10,00 E", "10,00 E", "", "0,00 E"}};
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), attendu);
        QCOMPARE(Lignes(Grille(e.get(), "Tree2")),
                 QList<QStringList>(
                     {{" ", " ", "Totaux :", "800,00 E", "800,00 E", "1 170,00 E", "1 170,00 E"}}));
        QVERIFY(Texte(e.get(), "Label1").isEmpty());
    }

    void totaux_egauxAuxTotauxDeLaVerification() {
        auto e = MontrerEcran<ecran::Balance>();
        QCOMPARE(EcartsTotauxBalance(e.get()), QString());
    }

    void clients_creditDansSoldeCreditEtLigneDuCollectif() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRClient");
        QCOMPARE(
            Lignes(Grille(e.get(), "Tree1")),
            QList<QStringList>(
                {{"411001", "Client Dupont", "0,00 E", "120,00 E", "", "120,00 E", ""},
                 {"411002", T("Client Léon"), "0,00 E", "50,00 E", "-80,00 E", "", "-30,00 E"}}));
        QCOMPARE(
            Lignes(Grille(e.get(), "Tree2")),
            QList<QStringList>(
                {{" ", " ", "Totaux :", "170,00 E", "80,00 E", "120,00 E", "30,00 E"},
                 {"410", "Clients collectif", "0,00 E", "170,00 E", "-80,00 E", "90,00 E", ""}}));
    }

    void fournisseurDebiteur_negatifEnSoldeDebitCompteEnPositif() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRFourn");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({{"401001", "Moulin Martin", "0,00 E", "-250,00 E", "200,00 E",
                                      "-50,00 E", ""}}));
        QCOMPARE(
            Lignes(Grille(e.get(), "Tree2")),
            QList<QStringList>({{" ", " ", "Totaux :", "250,00 E", "200,00 E", "50,00 E", "0,00 E"},
                                {"400", "Fournisseurs collectif", "0,00 E", "-250,00 E", "200,00 E",
                                 "-50,00 E", ""}}));
    }

    void clicSurUnTitre_trieLaBalance() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        ui::Grille* g = Grille(e.get(), "Tree1");
        QTest::mouseClick(g->header()->viewport(), Qt::LeftButton, {},
                          QPoint(g->header()->sectionViewportPosition(1) + 10, 5));
        QCOMPARE(g->Texte(0, 1), QStringLiteral("Achats"));
        QCOMPARE(g->Texte(7, 1), QStringLiteral("Ventes annexes"));
        // La colonne des totaux suit la largeur de la colonne de la balance.
        g->FixerLargeurColonne(1, 321);
        QCOMPARE(Grille(e.get(), "Tree2")->LargeurColonne(1), 321);
    }

    void information_ouvertureNonEquilibree() {
        // Capital ramené à 900 : l'ouverture et les soldes ne s'équilibrent plus.
        Base().exec("UPDATE Compte SET Sde=9000000, Solde=9000000 WHERE NumCpt='101'");
        Base().exec("UPDATE Constante SET SDR1=9000000, OuvertureClos=0");
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        QCOMPARE(Texte(e.get(), "Label1"),
                 T("INFORMATION: La différence entre les soldes vient de votre bilan d'ouverture "
                   "qui n'est pas encore équilibré."));
        Base().exec("UPDATE Constante SET OuvertureClos=1");
        CliquerOption(e.get(), "BRCompl");
        QCOMPARE(Texte(e.get(), "Label1"),
                 T("INFORMATION: La différence entre les soldes vient du fait que n'avez pas "
                   "encore effectué le transfert définitif des soldes de l'exercice précédent."));
        // Les autres balances ne la donnent pas.
        CliquerOption(e.get(), "BRClient");
        QVERIFY(Texte(e.get(), "Label1").isEmpty());
    }

    void information_jamaisAvecDesTotauxEgaux() {
        Base().exec("UPDATE Constante SET SDR1=9000000");
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        QVERIFY(Texte(e.get(), "Label1").isEmpty());
    }

    void doubleClic_ouvreLeDetailDuCompte() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        support::PiloteModal pilote;
        QString titre;
        pilote.Attendre("DetailCp", [&](QWidget* d) {
            titre = Texte(d, "Label1");
            support::CliquerBouton(d, "Command1");
        });
        pilote.Demarrer();
        support::CliquerCellule(Grille(e.get(), "Tree1"), 3, 1, true);
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
        QCOMPARE(session().CompteChoisi, QStringLiteral("512"));
        QCOMPARE(titre, QStringLiteral("512   Banque"));
    }

    void export_octetsEtMessage() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRClient");
        const QString chemin = banc.Fichier("clients.csv");
        Exporter(e.get(), "Command3", chemin);
        QVERIFY(ui::JournalDialogues().last().detail.endsWith(T("Balance des clients.csv")));
        QCOMPARE(TextesBoites(),
                 QStringList({T("La \"Balance des clients\" a été exportée sous \"") + chemin +
                              T("\"\r\n\r\nVoulez-vous ouvrir cette balance maintenant ?")}));
        QCOMPARE(LireFichier(chemin),
                 Bom + T("\"Numéro\";\"Libellé\";\"Solde début\";\"Total Débit\";\"Total "
                         "Crédit\";\"Solde Débit\";\"Solde Crédit\"\r\n"
                         "\"411001\";\"Client Dupont\";\" 0\";\" 120\";\"\";\" 120\";\"\"\r\n"
                         "\"411002\";\"Client Léon\";\" 0\";\" 50\";\"-80\";\"\";\"-30\"\r\n")
                           .toUtf8());
        // L'écran n'a pas bougé.
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 2);
    }

    void export_selectionVide_titreSeulSansMessageDEchec() {
        Base().exec("UPDATE Compte SET Sde=0, CumD=0, CumC=0, Solde=0 WHERE Menu=160");
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRFourn");
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 0);
        const QString chemin = banc.Fichier("fournisseurs.csv");
        Exporter(e.get(), "Command3", chemin);
        QCOMPARE(TextesBoites(),
                 QStringList({T("La \"Balance des fournisseurs\" a été exportée sous \"") + chemin +
                              T("\"\r\n\r\nVoulez-vous ouvrir cette balance maintenant ?")}));
        QCOMPARE(LireFichier(chemin),
                 Bom + T("\"Numéro\";\"Libellé\";\"Solde début\";\"Total Débit\";\"Total "
                         "Crédit\";\"Solde Débit\";\"Solde Crédit\"\r\n")
                           .toUtf8());
    }

    void export_pointVirguleDansUnLibelleNonProtege() {
        Base().exec("UPDATE Compte SET LibCpt='Client; Dupont' WHERE NumCpt='411001'");
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRClient");
        const QString chemin = banc.Fichier("clients.csv");
        Exporter(e.get(), "Command3", chemin);
        QVERIFY(LireFichier(chemin).contains(
            "\"411001\";\"Client; Dupont\";\" 0\";\" 120\";\"\";\" 120\";\"\"\r\n"));
    }

    void export_generaleNomPropose() {
        auto e = MontrerEcran<ecran::Balance>();
        CliquerOption(e.get(), "BRCompl");
        ui::RepondreFichier(QString());
        support::CliquerBouton(e.get(), "Command3");
        QVERIFY(ui::JournalDialogues().last().detail.endsWith(T("Balance Générale.csv")));
        QVERIFY(TextesBoites().isEmpty());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBalance t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_balance.moc"
