// Consultation des journaux : ordre exigé, lignes vides entre les écritures selon l'ordre,
// filtre du journal et du mois (date de saisie ou de pièce), totaux, jauge, bouton
// d'export et octets du fichier, mois courant à l'ouverture, taille gardée à la fermeture.

#include "EssaiConsultation.h"

#include "base/Reglages.h"
#include "consultation/Journal.h"
#include "ui/Application.h"
#include "ui/Horloge.h"

#include <QComboBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>

using namespace essai;

namespace {

QStringList Vide() {
    return QStringList(8, QString());
}

// Les lignes attendues, sous la forme de la grille.
const QStringList L1 = {"1",      "10/01/2024", "10/01/2024", "Facture Dupont",
                        "411001", "120,00 E",   "",           "V"};
const QStringList L2 = {"2",   "10/01/2024", "10/01/2024", "Facture Dupont",
                        "707", "",           "120,00 E",   "V"};
const QStringList L3 = {"3", "15/02/2024", "15/02/2024", "Achat farine", "607", "50,00 E", "", "A"};
const QStringList L4 = {"4",      "15/02/2024", "15/02/2024", "Achat farine",
                        "401001", "",           "50,00 E",    "A"};
const QStringList L5 = {"5",   "20/03/2024", "20/03/2024", T("Règlement Dupont"),
                        "512", "120,00 E",   "",           "T"};
const QStringList L6 = {"6",      "20/03/2024", "20/03/2024", T("Règlement Dupont"),
                        "411001", "",           "-120,00 E",  "T"};

} // namespace

class TestJournal : public QObject {
    Q_OBJECT
    BancConsultation banc;

    static void Livres() {
        Compte("512", "Banque");
        Compte("411001", "Client Dupont");
        Compte("401001", "Moulin Martin");
        Compte("607", "Achats");
        Compte("707", "Ventes");
        Passer("10/01/2024",
               {{"411001", "D", Euros(120), "Facture Dupont"},
                {"707", "C", Euros(120), "Facture Dupont"}},
               "V");
        Passer(
            "15/02/2024",
            {{"607", "D", Euros(50), "Achat farine"}, {"401001", "C", Euros(50), "Achat farine"}},
            "A");
        Passer("20/03/2024",
               {{"512", "D", Euros(120), T("Règlement Dupont")},
                {"411001", "C", Euros(120), T("Règlement Dupont")}},
               "T");
    }

    static QRadioButton* Option(QWidget* e, const QString& nom) {
        return e->findChild<QRadioButton*>(nom);
    }

private slots:
    void initTestCase() { banc.Preparer(&TestJournal::Livres); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() {
        banc.Debut();
        ui::FixerHorloge(QDateTime(QDate(2024, 5, 10), QTime(9, 0)));
    }
    void cleanup() {
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void ouverture_controlesEtMoisCourant() {
        auto e = MontrerEcran<ecran::Journal>();
        QCOMPARE(e->objectName(), QStringLiteral("Journal"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Consultations des Journaux"));
        QCOMPARE(Titres(Grille(e.get(), "Tree1")),
                 QStringList({"Numéro", "Date Saisie", "Date Pièce", "Libellé", "Compte", "Débit",
                              "Crédit", ""}));
        const QList<QPair<QString, QString>> options = {{T("BRGénéral"), T("Général")},
                                                        {"BRAchats", "Achats"},
                                                        {"BRVentes", "Ventes"},
                                                        {"BRTresor", T("Trésorerie")},
                                                        {"BROpDiv", "O.D."},
                                                        {"BRInvent", "Inventaire"},
                                                        {"BRCrois", "Croissant"},
                                                        {"BRDecrois", T("Décroissant")},
                                                        {"BRGlobal", "Global"},
                                                        {"BRMensuel", "Mensuel"},
                                                        {"BRDateSaisie", "Par date de saisie"},
                                                        {"BRDatePiece", T("Par date de pièce")}};
        for (const auto& [nom, texte] : options) {
            QVERIFY2(Option(e.get(), nom), qPrintable(nom));
            QCOMPARE(Option(e.get(), nom)->text(), texte);
        }
        QVERIFY(!Option(e.get(), "BRCrois")->isChecked());
        QVERIFY(!Option(e.get(), "BRDecrois")->isChecked());
        QCOMPARE(support::TrouverBouton(e.get(), "Command2")->text(), T("&Lancer la consultation"));
        QCOMPARE(support::TrouverBouton(e.get(), "Command3")->text(),
                 T("Export vers Excel (Fichier CSV)"));
        QCOMPARE(support::TrouverBouton(e.get(), "Command1")->text(), T("&Quitter"));
        QVERIFY(!support::TrouverBouton(e.get(), "Command3")->isEnabled());
        QVERIFY(!e->findChild<QProgressBar*>("Gauge1")->isVisible());
        auto* mois = e->findChild<QComboBox*>("Combo1");
        QCOMPARE(mois->count(), 12);
        QCOMPARE(mois->itemText(0), QStringLiteral("Janvier"));
        QCOMPARE(mois->itemText(11), T("Décembre"));
        QCOMPARE(mois->currentText(), QStringLiteral("Mai"));
        QCOMPARE(e->CodeJournal(), QStringLiteral("*"));
    }

    void journalAvantOrdre_avertitEtVideLaGrille() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 9);
        // Un nouvel écran : aucun ordre choisi.
        auto f = MontrerEcran<ecran::Journal>();
        ui::ViderJournalBoites();
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerOption(f.get(), "BRAchats");
        QCOMPARE(TextesBoites(), QStringList({"Choisissez un ordre de tri."}));
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Exclamation);
        QCOMPARE(f->CodeJournal(), QStringLiteral("A"));
        QCOMPARE(Grille(f.get(), "Tree1")->NombreLignes(), 0);
        QVERIFY(!support::TrouverBouton(f.get(), "Command3")->isEnabled());
    }

    void croissant_ligneVideApresLaLigneDeFin() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({L1, L2, Vide(), L3, L4, Vide(), L5, L6, Vide()}));
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("290,00 E"));
        QCOMPARE(Texte(e.get(), "Label2"), QStringLiteral("290,00 E"));
        QVERIFY(support::TrouverBouton(e.get(), "Command3")->isEnabled());
        QVERIFY(!e->findChild<QProgressBar*>("Gauge1")->isVisible());
        QVERIFY(Grille(e.get(), "Tree1")->updatesEnabled());
    }

    void remplissage_peintureCoupeeEtJaugeMontree() {
        auto e = MontrerEcran<ecran::Journal>();
        ui::Grille* g = Grille(e.get(), "Tree1");
        auto* jauge = e->findChild<QProgressBar*>("Gauge1");
        bool peintureCoupee = false, jaugeVue = false;
        int maximum = 0, valeur = 0;
        connect(g->model(), &QAbstractItemModel::rowsInserted, e.get(), [&] {
            peintureCoupee = !g->updatesEnabled();
            jaugeVue = jauge->isVisible();
            maximum = jauge->maximum();
            valeur = jauge->value();
        });
        CliquerOption(e.get(), "BRCrois");
        QVERIFY(peintureCoupee);
        QVERIFY(jaugeVue);
        QCOMPARE(maximum, 6);
        QCOMPARE(valeur, 6);
        QVERIFY(g->updatesEnabled());
        QVERIFY(!jauge->isVisible());
    }

    void decroissant_ligneVideAvantLaLigneDeFin() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRDecrois");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({L6, L5, Vide(), L4, L3, Vide(), L2, L1}));
    }

    void unJournal_seulesSesLignes() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        CliquerOption(e.get(), "BRTresor");
        QCOMPARE(e->CodeJournal(), QStringLiteral("T"));
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), QList<QStringList>({L5, L6, Vide()}));
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("120,00 E"));
        QCOMPARE(Texte(e.get(), "Label2"), QStringLiteral("120,00 E"));
        CliquerOption(e.get(), "BRAchats");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), QList<QStringList>({L3, L4, Vide()}));
        CliquerOption(e.get(), "BRVentes");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), QList<QStringList>({L1, L2, Vide()}));
    }

    void journalSansLigne_grilleVideExportFermeJaugeCachee() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        CliquerOption(e.get(), "BRInvent");
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 0);
        QVERIFY(!support::TrouverBouton(e.get(), "Command3")->isEnabled());
        QVERIFY(!e->findChild<QProgressBar*>("Gauge1")->isVisible());
        // Les totaux gardent ce qu'ils montraient.
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("290,00 E"));
        CliquerOption(e.get(), "BROpDiv");
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 0);
    }

    void mensuel_rienAvantDeLancerPuisLeMois() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        auto* mois = e->findChild<QComboBox*>("Combo1");
        QVERIFY(!mois->isEnabled());
        CliquerOption(e.get(), "BRMensuel");
        QVERIFY(mois->isEnabled());
        QVERIFY(Option(e.get(), "BRDatePiece")->isEnabled());
        mois->setCurrentIndex(1);
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 9);
        support::CliquerBouton(e.get(), "Command2");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), QList<QStringList>({L3, L4, Vide()}));
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("50,00 E"));
        // Retour au global : tout, sans lancer.
        CliquerOption(e.get(), "BRGlobal");
        QVERIFY(!mois->isEnabled());
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 9);
    }

    void mensuel_parDateDePiece() {
        // L'achat de février porte une pièce datée de mars.
        Base().exec("UPDATE Ecriture SET DatePiece='20240301' WHERE NumEcr IN (3, 4)");
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        CliquerOption(e.get(), "BRMensuel");
        e->findChild<QComboBox*>("Combo1")->setCurrentIndex(2);
        support::CliquerBouton(e.get(), "Command2");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")), QList<QStringList>({L5, L6, Vide()}));
        CliquerOption(e.get(), "BRDatePiece");
        support::CliquerBouton(e.get(), "Command2");
        QStringList l3 = L3, l4 = L4;
        l3[2] = l4[2] = QStringLiteral("01/03/2024");
        QCOMPARE(Lignes(Grille(e.get(), "Tree1")),
                 QList<QStringList>({l3, l4, Vide(), L5, L6, Vide()}));
    }

    void export_octetsDuFichierEtMessage() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRDecrois");
        const QString chemin = banc.Fichier("journal.csv");
        Exporter(e.get(), "Command3", chemin);
        QCOMPARE(TextesBoites(),
                 QStringList({T("Le journal \"Journal Général\" a été exporté sous \"") + chemin +
                              T("\"\r\n\r\nVoulez-vous ouvrir ce journal maintenant ?")}));
        QCOMPARE(ui::JournalBoites().first().titre, T("Export terminé"));
        QCOMPARE(LireFichier(chemin),
                 Bom + T("\"Numéro\";\"Date Saisie\";\"Date Pièce\";\"Libellé\";\"Compte\";"
                         "\"Débit\";\"Crédit\";\"Journal\"\r\n"
                         "\" 6\";\"20/03/2024\";\"20/03/2024\";\"Règlement Dupont\";\"411001\";"
                         "\"\";\"-120\";\"T\"\r\n"
                         "\" 5\";\"20/03/2024\";\"20/03/2024\";\"Règlement Dupont\";\"512\";"
                         "\"120\";\"\";\"T\"\r\n"
                         "\" 4\";\"15/02/2024\";\"15/02/2024\";\"Achat farine\";\"401001\";"
                         "\"\";\"50\";\"A\"\r\n"
                         "\" 3\";\"15/02/2024\";\"15/02/2024\";\"Achat farine\";\"607\";"
                         "\"50\";\"\";\"A\"\r\n"
                         "\" 2\";\"10/01/2024\";\"10/01/2024\";\"Facture Dupont\";\"707\";"
                         "\"\";\"120\";\"V\"\r\n"
                         "\" 1\";\"10/01/2024\";\"10/01/2024\";\"Facture Dupont\";\"411001\";"
                         "\"120\";\"\";\"V\"\r\n")
                           .toUtf8());
        // La grille reste celle de l'écran.
        QCOMPARE(Grille(e.get(), "Tree1")->NombreLignes(), 8);
    }

    void export_nomProposeDuJournalEtAnnulation() {
        auto e = MontrerEcran<ecran::Journal>();
        CliquerOption(e.get(), "BRCrois");
        CliquerOption(e.get(), "BROpDiv");
        CliquerOption(e.get(), "BRAchats");
        ui::RepondreFichier(QString());
        support::CliquerBouton(e.get(), "Command3");
        QVERIFY(TextesBoites().isEmpty());
        QVERIFY(ui::JournalDialogues().last().detail.endsWith(QStringLiteral("Achats.csv")));
    }

    void fermeture_gardeTailleEtColonnes() {
        {
            auto e = MontrerEcran<ecran::Journal>();
            e->resize(900, 500);
            Grille(e.get(), "Tree1")->FixerLargeurColonne(3, 333);
            support::CliquerBouton(e.get(), "Command1");
        }
        QCOMPARE(LireReglage("JournalForm", "width"), QStringLiteral("900"));
        QCOMPARE(LireReglage("JournalForm", "height"), QStringLiteral("500"));
        auto f = MontrerEcran<ecran::Journal>();
        QCOMPARE(f->width(), 900);
        QCOMPARE(Grille(f.get(), "Tree1")->LargeurColonne(3), 333);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestJournal t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_journal.moc"
