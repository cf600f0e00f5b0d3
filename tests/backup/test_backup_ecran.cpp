// L'écran de sauvegarde piloté comme par l'utilisateur : comptes, historique, sauvegarde,
// annulation, dossier inaccessible, historique mal formé, lignes inaccessibles, suppression.
#include "BancSauvegarde.h"
#include "EcranSauvegarde.h"
#include "backup/Backup.h"
#include "backup/ErreurSauvegarde.h"
#include "backup/Historique.h"
#include "backup/ZipBiblio.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Horloge.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace banc;
using namespace support;

namespace {

QString TexteDe(QWidget* ecran, const char* nom) {
    if (auto* l = ecran->findChild<QLineEdit*>(nom)) return l->text();
    if (auto* b = ecran->findChild<QAbstractButton*>(nom)) return b->text();
    if (auto* g = ecran->findChild<QGroupBox*>(nom)) return g->title();
    if (auto* t = ecran->findChild<QLabel*>(nom)) return t->text();
    return QStringLiteral("<absent>");
}

} // namespace

class TestBackupEcran : public QObject {
    Q_OBJECT
private slots:
    void premiereOuvertureCreeUnHistoriqueVideEtProchainHistoIDVautUn() {
        Banc banc;
        QVERIFY(!QFile::exists(banc.Fichier("history.xml")));
        ecran::Backup ecran;
        QVERIFY(QFile::exists(banc.Fichier("history.xml")));
        QVERIFY(LireHistorique(banc.Fichier("history.xml")).isEmpty());
        QCOMPARE(ecran.ProchainHistoID, 1);
        QCOMPARE(Liste(&ecran)->NombreLignes(), 0);
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(ecran.objectName(), QStringLiteral("Backup"));
        QCOMPARE(ecran.windowTitle(), QStringLiteral("Sauvegarde & Restauration"));
        QCOMPARE(TexteDe(&ecran, "Frame1"), QStringLiteral("Base de données actuelle"));
        QCOMPARE(TexteDe(&ecran, "Command2"), QStringLiteral("&Sauvegarder"));
        QCOMPARE(TexteDe(&ecran, "Command1"), QStringLiteral("&Restaurer"));
        QCOMPARE(TexteDe(&ecran, "Command4"), QStringLiteral("Restauration manuelle"));
        QCOMPARE(TexteDe(&ecran, "Command3"), QStringLiteral("&Abandon"));
        QCOMPARE(TexteDe(&ecran, "Label2"),
                 QStringLiteral("Comment restaurer une sauvegarde de l'ancien Maroval ?"));
        QCOMPARE(TexteDe(&ecran, "TitreListe"), QStringLiteral("Historique des sauvegardes"));
        QCOMPARE(TexteDe(&ecran, "AideSuppression"),
                 QStringLiteral("Pour supprimer : sélectionnez puis appuyer sur la touche Suppr "
                                "du clavier."));
        const ui::Grille* titres = Liste(&ecran);
        QCOMPARE(titres->Titre(0), QStringLiteral("\nDate"));
        QCOMPARE(titres->Titre(1), QStringLiteral("\nNombre écritures"));
        QCOMPARE(titres->Titre(2), QStringLiteral("\nFichier"));
        QCOMPARE(titres->Titre(3), QStringLiteral("\nAccessible"));
        QCOMPARE(Liste(&ecran)->selectionMode(), QAbstractItemView::ExtendedSelection);
    }

    void unCompteDeUnEstAuSingulierEtZeroAuPluriel() {
        Banc banc;
        {
            ecran::Backup ecran;
            QCOMPARE(TexteDe(&ecran, "Text1"), QStringLiteral("0 sociétés"));
            QCOMPARE(TexteDe(&ecran, "Text2"), QStringLiteral("0 exercices"));
            QCOMPARE(TexteDe(&ecran, "Text3"), QStringLiteral("0 écritures"));
            QCOMPARE(ecran.NbEcrituresBase, 0);
        }
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 1);
        {
            ecran::Backup ecran;
            QCOMPARE(TexteDe(&ecran, "Text1"), QStringLiteral("1 société"));
            QCOMPARE(TexteDe(&ecran, "Text2"), QStringLiteral("1 exercice"));
            QCOMPARE(TexteDe(&ecran, "Text3"), QStringLiteral("1 écriture"));
        }
        AjouterSocieteEssai(QStringLiteral("Beta"), 2025, 2);
        ecran::Backup ecran;
        QCOMPARE(TexteDe(&ecran, "Text1"), QStringLiteral("2 sociétés"));
        QCOMPARE(TexteDe(&ecran, "Text2"), QStringLiteral("2 exercices"));
        QCOMPARE(TexteDe(&ecran, "Text3"), QStringLiteral("3 écritures"));
        QCOMPARE(ecran.NbEcrituresBase, 3);
    }

    void sauvegardeAnnuleeDansLeDialogueRouvreLaBaseSansRienEcrire() {
        Banc banc;
        ecran::Backup ecran;
        const QByteArray historique = Lire(banc.Fichier("history.xml"));
        ui::RepondreFichier(QString());
        bool baseFermeePendantLeDialogue = false;
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command2")).Attendre("Backup", [&](QWidget* e) {
            // Le dialogue a été demandé base fermée ; elle est rouverte ensuite.
            baseFermeePendantLeDialogue = ui::JournalDialogues().size() == 1;
            CliquerBouton(e, "Command3");
        });
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(baseFermeePendantLeDialogue);
        QVERIFY(BaseOuverte());
        QVERIFY(ui::JournalBoites().isEmpty());
        QCOMPARE(Lire(banc.Fichier("history.xml")), historique);
        QCOMPARE(QDir(banc.Archives()).entryList(QDir::Files), QStringList());
    }

    void sauvegardeFaitLArchiveLaLigneDHistoriqueEtRouvreLaBase() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 40);
        ui::FixerHorloge(QDateTime(QDate(2024, 12, 31), QTime(9, 5, 7)));
        ecran::Backup ecran;
        const QString chemin = banc.Archives() + QStringLiteral("/maroval31-12-2024-09h05.sav");
        ui::RepondreFichier(chemin);
        bool baseFermeePendantLaBoite = false;
        QStringList ligne;
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command2"))
            .AttendreBoite(TexteEffectuee(chemin),
                           [&](QWidget* b) {
                               baseFermeePendantLaBoite = !BaseOuverte();
                               CliquerBouton(b, "OK");
                           })
            .Attendre("Backup", [&](QWidget* e) {
                ui::Grille* g = Liste(e);
                for (int c = 0; c < 4 && g->NombreLignes() == 1; ++c)
                    ligne << g->Texte(0, c);
                CliquerBouton(e, "Command3");
            });
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(baseFermeePendantLaBoite);
        QVERIFY(BaseOuverte());
        QCOMPARE(ui::JournalDialogues().size(), 1);
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::Enregistrer);
        QCOMPARE(ui::JournalDialogues()[0].detail, QStringLiteral("maroval31-12-2024-09h05.sav"));
        QCOMPARE(ui::JournalDialogues()[0].filtre,
                 QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Maroval"));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Information);
        QCOMPARE(ligne, QStringList({"31/12/2024 09:05:07", "40 écritures", chemin, "Oui"}));
        QCOMPARE(ecran.ProchainHistoID, 2);

        const QList<LigneHistorique> h = LireHistorique(banc.Fichier("history.xml"));
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].HistoID, 1);
        QCOMPARE(*h[0].Date, QStringLiteral("20241231090507"));
        QCOMPARE(h[0].NbEcritures, 40);
        QCOMPARE(*h[0].FichierSauvegarde, chemin);
        QCOMPARE(h[0].TailleFic, QFileInfo(chemin).size());
        QVERIFY(h[0].TailleFic > 0);
        QCOMPARE(QDir(banc.Archives()).entryList(QDir::Files),
                 QStringList({"maroval31-12-2024-09h05.sav"}));
    }

    void deuxSauvegardesDansLaMemeMinuteProposentLeMemeNom() {
        Banc banc;
        ui::FixerHorloge(QDateTime(QDate(2025, 3, 4), QTime(8, 7, 1)));
        ecran::Backup ecran;
        const QString chemin = banc.Archives() + QStringLiteral("/maroval04-03-2025-08h07.sav");
        ui::RepondreFichier(chemin);
        ui::RepondreFichier(chemin); // le dialogue a accepté d'écraser le fichier
        ui::RepondreBoite(ui::Reponse::OK);
        ui::RepondreBoite(ui::Reponse::OK);
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command2"))
            .Attendre("Backup",
                      [](QWidget* e) {
                          ui::FixerHorloge(QDateTime(QDate(2025, 3, 4), QTime(8, 7, 59)));
                          CliquerBouton(e, "Command2");
                      })
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalDialogues().size(), 2);
        QCOMPARE(ui::JournalDialogues()[0].detail, ui::JournalDialogues()[1].detail);
        const QList<LigneHistorique> h = LireHistorique(banc.Fichier("history.xml"));
        QCOMPARE(h.size(), 2);
        QCOMPARE(h[0].HistoID, 1);
        QCOMPARE(h[1].HistoID, 2);
        QCOMPARE(*h[1].Date, QStringLiteral("20250304080759"));
        // L'archive remplacée garde ses deux seules entrées.
        QCOMPARE(QDir(banc.Archives()).entryList(QDir::Files),
                 QStringList({"maroval04-03-2025-08h07.sav"}));
        QVERIFY(UnZip(chemin, QStringLiteral("maroval.ini"), banc.Archives()));
    }

    void dossierDeSauvegardeInaccessibleDitSauvegardeNonEffectuee() {
        Banc banc;
        ecran::Backup ecran;
        const QByteArray historique = Lire(banc.Fichier("history.xml"));
        const QString bouchon = banc.Archives() + QStringLiteral("/cle-usb");
        Ecrire(bouchon, "pas un dossier");
        ui::RepondreFichier(bouchon + QStringLiteral("/sauvegarde.sav"));
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command2"))
            .AttendreBoite(TexteNonEffectuee, "OK")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Sauvegarde NON effectuée"));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Critique);
        QVERIFY(BaseOuverte());
        QCOMPARE(Lire(banc.Fichier("history.xml")), historique);
        QCOMPARE(QDir(banc.Archives()).entryList(QDir::Files), QStringList({"cle-usb"}));
    }

    void sauvegardeSurLaBaseElleMemeEstRefusee() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 5);
        ecran::Backup ecran;
        const QStringList avant = VidageComplet();
        const QByteArray historique = Lire(banc.Fichier("history.xml"));
        const QByteArray ini = Lire(banc.Fichier("maroval.ini"));
        QStringList textes;
        for (const char* nom : {"maroval.mdb", "maroval.ini", "history.xml"}) {
            ui::RepondreFichier(banc.Fichier(nom));
            textes << QStringLiteral("Une sauvegarde ne peut pas remplacer un fichier de Maroval "
                                     "lui-même :\n\n") +
                          banc.Fichier(nom) +
                          QStringLiteral("\n\nChoisissez un autre nom de fichier.");
        }
        PiloteModal pilote;
        for (const QString& t : textes)
            pilote.Attendre("Backup", Cliquer("Command2")).AttendreBoite(t, "OK");
        pilote.Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites().size(), 3);
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Sauvegarde NON effectuée"));
        QVERIFY(BaseOuverte());
        QCOMPARE(VidageComplet(), avant);
        QCOMPARE(Lire(banc.Fichier("history.xml")), historique);
        QCOMPARE(Lire(banc.Fichier("maroval.ini")), ini);
    }

    void historiqueMalFormeNommeSonOrigineEtLEcranResteUtilisable() {
        Banc banc;
        const QByteArray abime = "<xml><rs:data><z:row HistoID='1'/></xml>";
        Ecrire(banc.Fichier("history.xml"), abime);
        ui::RepondreBoite(ui::Reponse::OK);
        ecran::Backup ecran;
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal erreur = ui::JournalBoites()[0];
        QCOMPARE(erreur.titre, QStringLiteral("Une erreur est survenue"));
        QCOMPARE(erreur.icone, ui::Icone::Critique);
        const QStringList lignes = erreur.texte.split('\n');
        QCOMPARE(lignes.size(), 4);
        QCOMPARE(lignes[0], QStringLiteral(" - Module Backup - AffHistoSauvegardes - Ligne 20"));
        QVERIFY2(lignes[1].startsWith(QStringLiteral("Numero d'erreur : 3001 Description : "
                                                     "history.xml n'est pas un historique")),
                 qPrintable(lignes[1]));
        QCOMPARE(lignes[2], QStringLiteral("Appuyez sur les touches [Alt] [Impr. Ecran] pour "
                                           "copier cette erreur."));
        QCOMPARE(lignes[3], QStringLiteral("Collez-la ensuite dans Word, MsPaint ou Wordpad pour "
                                           "pouvoir l'envoyer par email."));
        QCOMPARE(Liste(&ecran)->NombreLignes(), 0);

        // Une sauvegarde reste possible ; l'historique illisible n'est pas écrasé.
        const QString chemin = banc.Archives() + QStringLiteral("/malgre.sav");
        ui::RepondreFichier(chemin);
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command2"))
            .AttendreBoite(
                TexteErreurOrigine("Backup", "Command2_Click", 60, 3001,
                                   erreur.texte.split(" Description : ")[1].split('\n')[0]),
                "OK")
            .AttendreBoite(TexteEffectuee(chemin), "OK")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(QFile::exists(chemin));
        QCOMPARE(Lire(banc.Fichier("history.xml")), abime);
        QVERIFY(BaseOuverte());
    }

    void label2DonneLeCheminDesAnciennesSauvegardes() {
        Banc banc;
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote
            .Attendre("Backup",
                      [](QWidget* e) {
                          QTest::mouseClick(e->findChild<QLabel*>("Label2"), Qt::LeftButton);
                      })
            .AttendreBoite(QStringLiteral("Si vous disposez encore de sauvegardes sur disquettes\n"
                                          "de la version précédente de Maroval, vous pouvez les\n"
                                          "restaurer en allant dans :\n"
                                          "Le menu Sauvegarde & Restauration\n"
                                          "Puis Maroval Précédent\n"
                                          "Puis Sauvegardes Ancien Maroval"),
                           "OK")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Information);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBackupEcran test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_backup_ecran.moc"
