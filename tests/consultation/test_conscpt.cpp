// Consultation d'un compte et détail d'un compte : recherche à la frappe, chiffres du
// compte, toutes les lignes, celles d'un mois avec le solde qui part d'avant le mois, les
// cumuls mensuels depuis le mois de début, et les octets de chaque export.

#include "support/ExerciceEssai.h"
#include "support/GestesGrille.h"
#include "support/PiloteModal.h"

#include "chart/GestionPlan.h"
#include "chart/Ouverture.h"
#include "consultation/ConsCpt.h"
#include "consultation/DetailCp.h"
#include "consultation/Export.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <memory>

using namespace essai;
using ui::Reponse;

namespace {

const QByteArray Bom("\xEF\xBB\xBF");
const QByteArray TitresLignes =
    "\"Num\xC3\xA9ro\";\"Date\";\"Libell\xC3\xA9\";\"D\xC3\xA9\x62it\";\"Cr\xC3\xA9\x64it\";"
    "\"Solde\"\r\n";

QString T(const char* texte) {
    return QString::fromUtf8(texte);
}

} // namespace

class TestConsCpt : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> modele, dossier;
    std::unique_ptr<GardeBoites> garde;

    // Banque au début de 1 000 ; une vente en janvier, son règlement et un achat en mars, une
    // vente payée comptant en avril.
    void Livres() {
        AssurerComptesFixes(Cle);
        Compte("512", "Banque");
        Compte("411001", "Client Dupont \"fils\"");
        Compte("607", "Achats");
        Compte("707", "Ventes");
        MajSoldeOuverture("512", Euros(1000));
        MajCumulsOuverture("512", Montant(), Euros(1000));
        Passer("10/01/2024", {{"411001", "D", Euros(120), "Facture Dupont"},
                              {"707", "C", Euros(120), "Facture Dupont"}});
        Passer("15/03/2024", {{"512", "D", Euros(120), T("Règlement Dupont")},
                              {"411001", "C", Euros(120), T("Règlement Dupont")}});
        Passer("20/03/2024", {{"607", "D", Euros(50), "Achat; farine"},
                              {"512", "C", Euros(50), "Achat; farine"}});
        Passer("05/04/2024", {{"512", "D", Euros(30.5), "Vente comptant"},
                              {"707", "C", Euros(30.5), "Vente comptant"}});
    }

    std::unique_ptr<ecran::ConsCpt> Montrer() { return MontrerEcran<ecran::ConsCpt>(); }

    static ui::Grille* Grille(QWidget* e, const char* nom) {
        return e->findChild<ui::Grille*>(QString::fromLatin1(nom));
    }
    static QString Texte(QWidget* e, const char* nom) {
        return e->findChild<QLabel*>(QString::fromLatin1(nom))->text();
    }
    static QStringList Ligne(ui::Grille* g, int i) {
        QStringList l;
        for (int c = 0; c < g->NombreColonnes(); ++c)
            l << g->Texte(i, c);
        return l;
    }
    static QStringList Titres(ui::Grille* g) {
        QStringList l;
        for (int c = 0; c < g->NombreColonnes(); ++c)
            l << g->Titre(c);
        return l;
    }

    void Choisir512(ecran::ConsCpt* e) {
        support::TaperTexte(e, "Text1", "512");
        QTest::keyClick(e->findChild<QLineEdit*>("Text1"), Qt::Key_Return);
    }

    // Export par le bouton vers ce fichier ; la question de fin reçoit Non.
    QString Exporter(QWidget* e, const QString& nom) {
        const QString chemin = dossier->Fichier(nom);
        ui::RepondreFichier(chemin);
        ui::RepondreBoite(Reponse::Non);
        support::CliquerBouton(e, "BTExport");
        return chemin;
    }

private slots:
    // Les livres sont passés une fois ; chaque essai part d'une copie.
    void initTestCase() {
        modele = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*modele);
        Livres();
        FermerBase();
    }
    void cleanupTestCase() { modele.reset(); }
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        CopierDonnees(modele->Chemin(), dossier->Chemin());
        OuvrirSession(dossier->Chemin());
        QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
        FixerApplicationAssociee(true);
        garde = std::make_unique<GardeBoites>();
    }
    void cleanup() {
        QVERIFY2(garde->inattendues.isEmpty(), qPrintable(garde->inattendues.join(" | ")));
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        garde.reset();
        FixerApplicationAssociee(std::nullopt);
        QLocale::setDefault(QLocale::c());
        FermerBase();
        dossier.reset();
    }

    void ouverture_listeDesComptesEtColonnes() {
        auto e = Montrer();
        QCOMPARE(e->objectName(), QStringLiteral("ConsCpt"));
        QCOMPARE(e->windowTitle(), QStringLiteral("Consultations des comptes"));
        ui::Grille* t1 = Grille(e.get(), "Tree1");
        QCOMPARE(Titres(t1), QStringList({"Numéro", "Libellé", "Solde"}));
        QCOMPARE(Titres(Grille(e.get(), "Tree2")),
                 QStringList({"Numéro", "Date", "Libellé", "Débit", "Crédit", "Solde"}));
        QCOMPARE(Titres(Grille(e.get(), "Tree3")),
                 QStringList({"Mois", "Débits", "Crédits", "Solde mensuel", "Solde cumulé"}));
        QCOMPARE(t1->NombreLignes(), 8);
        QCOMPARE(t1->Texte(0, 0), QStringLiteral("400"));
        QCOMPARE(Ligne(t1, 2), QStringList({"411001", "Client Dupont \"fils\"", "0,00 E"}));
        QCOMPARE(Ligne(t1, 3), QStringList({"512", "Banque", "1 100,50 E"}));
        QCOMPARE(t1->DonneeLigne(3).toString(), QStringLiteral("512"));
        QCOMPARE(Texte(e.get(), "Label11"),
                 T("Sélectionnez le compte que vous souhaitez consulter ou tapez le ci-après :"));
        QVERIFY(!e->findChild<QPushButton*>("Command1")->isEnabled());
        QVERIFY(!Grille(e.get(), "Tree2")->isVisible());
        QCOMPARE(e->findChild<QListWidget*>("LB_Mois")->count(), 12);
    }

    void frappe_majusculesEtPremierCompteNonInferieur() {
        auto e = Montrer();
        support::TaperTexte(e.get(), "Text1", "6");
        QCOMPARE(e->findChild<QLineEdit*>("Text1")->text(), QStringLiteral("6"));
        // Le premier numéro qui n'est pas en dessous de "6" : 607, choisi aussitôt.
        QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("607   Achats"));
        support::TaperTexte(e.get(), "Text1", "41a");
        QCOMPARE(e->findChild<QLineEdit*>("Text1")->text(), QStringLiteral("41A"));
        QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("512   Banque"));
    }

    void choix_chiffresDuCompte() {
        auto e = Montrer();
        Choisir512(e.get());
        QCOMPARE(Texte(e.get(), "Label10"), QStringLiteral("512   Banque"));
        QCOMPARE(Texte(e.get(), "Label3"), QStringLiteral("1 000,00 E"));
        QCOMPARE(Texte(e.get(), "Label5"), QStringLiteral("150,50 E"));
        QCOMPARE(Texte(e.get(), "Label7"), QStringLiteral("-50,00 E"));
        QCOMPARE(Texte(e.get(), "Label9"), QStringLiteral("1 100,50 E"));
        for (const char* b : {"Command1", "Command3", "Command6", "BTExport"})
            QVERIFY(e->findChild<QPushButton*>(b)->isEnabled());
    }

    void toutesLesEcritures_soldeQuiCourtDepuisLeDebut() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command1");
        ui::Grille* t2 = Grille(e.get(), "Tree2");
        QVERIFY(t2->isVisible());
        QVERIFY(!Grille(e.get(), "Tree1")->isVisible());
        QCOMPARE(Texte(e.get(), "Label1"), T("Liste des écritures passées sur le compte"));
        QCOMPARE(t2->NombreLignes(), 3);
        QCOMPARE(Ligne(t2, 0), QStringList({"3", "15/03/2024", "Règlement Dupont", "120,00 E", "",
                                            "1 120,00 E"}));
        QCOMPARE(Ligne(t2, 1),
                 QStringList({"6", "20/03/2024", "Achat; farine", "", "-50,00 E", "1 070,00 E"}));
        QCOMPARE(Ligne(t2, 2),
                 QStringList({"7", "05/04/2024", "Vente comptant", "30,50 E", "", "1 100,50 E"}));
    }

    void mois_leSoldePartDeCeluiDAvantLeMois() {
        auto e = Montrer();
        Choisir512(e.get());
        support::ChoisirLigneListe(e.get(), "LB_Mois", 3);
        support::CliquerBouton(e.get(), "Command3");
        ui::Grille* t2 = Grille(e.get(), "Tree2");
        QCOMPARE(Texte(e.get(), "Label1"), T("Liste des écritures passées sur le compte en Avril"));
        QCOMPARE(t2->NombreLignes(), 1);
        QCOMPARE(Ligne(t2, 0),
                 QStringList({"7", "05/04/2024", "Vente comptant", "30,50 E", "", "1 100,50 E"}));
    }

    void mois_sansLigneDonneUneListeVideSansMessage() {
        auto e = Montrer();
        Choisir512(e.get());
        support::ChoisirLigneListe(e.get(), "LB_Mois", 1);
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(Grille(e.get(), "Tree2")->NombreLignes(), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void mois_aucunMoisChoisiDonneLeMessage() {
        auto e = Montrer();
        Choisir512(e.get());
        ui::RepondreBoite(Reponse::OK);
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(TextesBoites(), QStringList{T("Aucun mois n'est sélectionné !")});
        QCOMPARE(ui::JournalBoites().first().icone, ui::Icone::Information);
        QVERIFY(!Grille(e.get(), "Tree2")->isVisible());
    }

    void cumuls_depuisOctobrePourUnExerciceDeJanvier() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command6");
        ui::Grille* t3 = Grille(e.get(), "Tree3");
        QVERIFY(t3->isVisible());
        QCOMPARE(Texte(e.get(), "Label1"), QStringLiteral("Cumuls mensuels du compte 512"));
        QCOMPARE(t3->NombreLignes(), 12);
        QCOMPARE(Ligne(t3, 0),
                 QStringList({"Octobre", "0,00 E", "0,00 E", "0,00 E", "1 000,00 E"}));
        QCOMPARE(Ligne(t3, 5),
                 QStringList({"Mars", "120,00 E", "-50,00 E", "70,00 E", "1 070,00 E"}));
        QCOMPARE(Ligne(t3, 6),
                 QStringList({"Avril", "30,50 E", "0,00 E", "30,50 E", "1 100,50 E"}));
        QCOMPARE(Ligne(t3, 11).first(), QStringLiteral("Septembre"));
        QCOMPARE(t3->Texte(11, 4), QStringLiteral("1 100,50 E"));
    }

    void cumuls_autreDebutMemeSoldeFinal() {
        // Début au 15 janvier : caractères 6 et 7 de 20240115 donnent 11, donc novembre.
        session().MoisDebutExercice = CalculMoisDebutExercice(QStringLiteral("20240115"));
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command6");
        ui::Grille* t3 = Grille(e.get(), "Tree3");
        QCOMPARE(t3->Texte(0, 0), QStringLiteral("Novembre"));
        QCOMPARE(t3->Texte(11, 0), QStringLiteral("Octobre"));
        QCOMPARE(t3->Texte(11, 4), QStringLiteral("1 100,50 E"));
    }

    void cumuls_debutEnFevrierSortDeLaListe() {
        // 20240201 donne 20 : août, puis 13 après un seul retrait de 12, qui n'a pas de nom.
        session().MoisDebutExercice = CalculMoisDebutExercice(QStringLiteral("20240201"));
        auto e = Montrer();
        Choisir512(e.get());
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, e->Command6_Click());
    }

    void cumuls_moisHorsDeLaListeEstLErreurDExecution() {
        // 20240301 donne 30, puis 18 : aucun nom de mois, l'erreur d'exécution du programme.
        session().MoisDebutExercice = CalculMoisDebutExercice(QStringLiteral("20240301"));
        auto e = Montrer();
        Choisir512(e.get());
        QVERIFY_THROWS_EXCEPTION(ErreurExecution, e->Command6_Click());
    }

    void mois_priseDansLesCumulsQuandIlsSontMontres() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command6");
        support::CliquerCellule(Grille(e.get(), "Tree3"), 5, 0); // Mars
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(Texte(e.get(), "Label1"), T("Liste des écritures passées sur le compte en Mars"));
        ui::Grille* t2 = Grille(e.get(), "Tree2");
        QCOMPARE(t2->NombreLignes(), 2);
        QCOMPARE(t2->Texte(1, 5), QStringLiteral("1 070,00 E"));
    }

    void autreConsultation_revientALaListe() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command1");
        support::CliquerBouton(e.get(), "Command5");
        QVERIFY(Grille(e.get(), "Tree1")->isVisible());
        QVERIFY(!Grille(e.get(), "Tree2")->isVisible());
        QVERIFY(!Grille(e.get(), "Tree3")->isVisible());
        QVERIFY(e->findChild<QListWidget*>("LB_Mois")->isVisible());
        QCOMPARE(e->findChild<QLineEdit*>("Text1")->text(), QString());
        QCOMPARE(Texte(e.get(), "Label11"),
                 T("Sélectionner le compte que vous souhaitez consulter ou tapez le ci-après :"));
    }

    void export_toutesLesLignesOctetsExacts() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command1");
        const QString f = Exporter(e.get(), "banque.csv");
        QCOMPARE(ui::JournalDialogues().first().detail, QStringLiteral("512-Banque.csv"));
        QCOMPARE(LireFichier(f),
                 Bom + TitresLignes +
                     "\" 3\";\"15/03/2024\";\"R\xC3\xA8glement Dupont\";\" 120\";\"\";\" 1120\"\r\n"
                     "\" 6\";\"20/03/2024\";\"Achat; farine\";\"\";\"-50\";\" 1070\"\r\n"
                     "\" 7\";\"05/04/2024\";\"Vente comptant\";\" 30.5\";\"\";\" 1100.5\"\r\n");
        QCOMPARE(TextesBoites(),
                 QStringList{QStringLiteral("Le compte \"512-Banque\" a été exporté "
                                            "sous \"%1\"\r\n\r\nVoulez-vous ouvrir "
                                            "ce journal maintenant ?")
                                 .arg(f)});
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Export terminé"));
        // L'écran montre toujours les lignes du compte.
        QCOMPARE(Grille(e.get(), "Tree2")->NombreLignes(), 3);
    }

    void export_unMoisEtUnMoisVide() {
        auto e = Montrer();
        Choisir512(e.get());
        support::ChoisirLigneListe(e.get(), "LB_Mois", 3);
        support::CliquerBouton(e.get(), "Command3");
        const QString f = Exporter(e.get(), "avril.csv");
        QCOMPARE(ui::JournalDialogues().first().detail, QStringLiteral("512-(Avril).csv"));
        QCOMPARE(LireFichier(f),
                 Bom + TitresLignes +
                     "\" 7\";\"05/04/2024\";\"Vente comptant\";\" 30.5\";\"\";\" 1100.5\"\r\n");
        support::CliquerBouton(e.get(), "Command5");
        Choisir512(e.get());
        support::ChoisirLigneListe(e.get(), "LB_Mois", 1);
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(LireFichier(Exporter(e.get(), "fevrier.csv")), Bom + TitresLignes);
        QCOMPARE(TextesBoites().last(),
                 QStringLiteral("Le compte \"512-(Février)\" a été exporté sous \"%1\"\r\n\r\n"
                                "Voulez-vous ouvrir ce journal maintenant ?")
                     .arg(dossier->Fichier("fevrier.csv")));
    }

    void export_cumulsMensuels() {
        auto e = Montrer();
        Choisir512(e.get());
        support::CliquerBouton(e.get(), "Command6");
        const QByteArray octets = LireFichier(Exporter(e.get(), "cumuls.csv"));
        QCOMPARE(ui::JournalDialogues().first().detail,
                 QStringLiteral("512-(Cumuls Mensuels).csv"));
        const QList<QByteArray> lignes = octets.split('\n');
        QCOMPARE(lignes.size(), 14); // titre, douze mois, reste vide après le dernier CR LF
        QCOMPARE(lignes[0], Bom + "\"Mois\";\"D\xC3\xA9\x62its\";\"Cr\xC3\xA9\x64its\";\"Solde "
                                  "mensuel\";\"Solde cumul\xC3\xA9\"\r");
        QCOMPARE(lignes[1], QByteArray("\"Octobre\";\" 0\";\" 0\";\" 0\";\" 1000\"\r"));
        QCOMPARE(lignes[6], QByteArray("\"Mars\";\" 120\";\"-50\";\" 70\";\" 1070\"\r"));
        QCOMPARE(lignes[12], QByteArray("\"Septembre\";\" 0\";\" 0\";\" 0\";\" 1100.5\"\r"));
        QVERIFY(lignes[13].isEmpty());
    }

    void export_libelleAvecGuillemetTelQuel() {
        auto e = Montrer();
        support::TaperTexte(e.get(), "Text1", "411001");
        QTest::keyClick(e->findChild<QLineEdit*>("Text1"), Qt::Key_Return);
        // Depuis la liste des comptes, tout le compte s'exporte (et se montre).
        const QString f = Exporter(e.get(), "dupont.csv");
        QCOMPARE(ui::JournalDialogues().first().detail,
                 QStringLiteral("411001-Client Dupont \"fils\".csv"));
        QCOMPARE(LireFichier(f),
                 Bom + TitresLignes +
                     "\" 1\";\"10/01/2024\";\"Facture Dupont\";\" 120\";\"\";\" 120\"\r\n"
                     "\" 4\";\"15/03/2024\";\"R\xC3\xA8glement Dupont\";\"\";\"-120\";\" 0\"\r\n");
        QVERIFY(TextesBoites().first().startsWith(
            QStringLiteral("Le compte \"411001-Client Dupont \"fils\"\" a été exporté sous")));
    }

    void export_separateurDuSystemeVirgule() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        auto e = Montrer();
        Choisir512(e.get());
        support::ChoisirLigneListe(e.get(), "LB_Mois", 3);
        support::CliquerBouton(e.get(), "Command3");
        QCOMPARE(LireFichier(Exporter(e.get(), "virgule.csv")),
                 Bom + "\"Num\xC3\xA9ro\",\"Date\",\"Libell\xC3\xA9\",\"D\xC3\xA9\x62it\","
                       "\"Cr\xC3\xA9\x64it\",\"Solde\"\r\n"
                       "\" 7\",\"05/04/2024\",\"Vente comptant\",\" 30.5\",\"\",\" 1100.5\"\r\n");
    }

    void export_annuleNEcritRien() {
        auto e = Montrer();
        Choisir512(e.get());
        ui::RepondreFichier(QString());
        support::CliquerBouton(e.get(), "BTExport");
        QVERIFY(ui::JournalBoites().isEmpty());
        QVERIFY(!QFile::exists(dossier->Fichier("512-Banque.csv")));
    }

    void export_ouiOuvreLeFichier() {
        auto e = Montrer();
        Choisir512(e.get());
        const QString chemin = dossier->Fichier("ouvert.csv");
        ui::RepondreFichier(chemin);
        ui::RepondreBoite(Reponse::Oui);
        support::CliquerBouton(e.get(), "BTExport");
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::OuvrirFichier);
        QCOMPARE(ui::JournalDialogues().last().detail, chemin);
    }

    void detail_lignesDuCompteChoisiEtExport() {
        session().CompteChoisi = QStringLiteral("411001");
        ecran::DetailCp d;
        d.show();
        QCOMPARE(d.objectName(), QStringLiteral("DetailCp"));
        ui::Grille* g = Grille(&d, "Tree1");
        QCOMPARE(Titres(g), QStringList({"Numéro", "Date", "Libellé", "Débit", "Crédit", "Solde"}));
        QCOMPARE(g->NombreLignes(), 2);
        QCOMPARE(Ligne(g, 1),
                 QStringList({"4", "15/03/2024", "Règlement Dupont", "", "-120,00 E", "0,00 E"}));
        QCOMPARE(Texte(&d, "Label1"), QStringLiteral("411001   Client Dupont \"fils\""));
        const QString f = dossier->Fichier("detail.csv");
        ui::RepondreFichier(f);
        ui::RepondreBoite(Reponse::Non);
        support::CliquerBouton(&d, "Command3");
        QCOMPARE(ui::JournalDialogues().first().detail,
                 QStringLiteral("411001-Client Dupont \"fils\".csv"));
        QCOMPARE(LireFichier(f),
                 Bom + TitresLignes +
                     "\" 1\";\"10/01/2024\";\"Facture Dupont\";\" 120\";\"\";\" 120\"\r\n"
                     "\" 4\";\"15/03/2024\";\"R\xC3\xA8glement Dupont\";\"\";\"-120\";\" 0\"\r\n");
    }

    void detail_soldeDepartEstLeSoldeDeDebut() {
        session().CompteChoisi = QStringLiteral("512");
        ecran::DetailCp d;
        ui::Grille* g = Grille(&d, "Tree1");
        QCOMPARE(g->Texte(0, 5), QStringLiteral("1 120,00 E"));
        QCOMPARE(g->Texte(2, 5), QStringLiteral("1 100,50 E"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestConsCpt t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_conscpt.moc"
