// Restauration d'une archive sur toute la base : aller-retour complet, restauration
// manuelle et par la ligne de commande, fin commune, et les mauvaises archives qui laissent
// la base et l'historique intacts.
#include "BancSauvegarde.h"
#include "EcranSauvegarde.h"
#include "backup/Backup.h"
#include "backup/Historique.h"
#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"

#include <QtTest>

using namespace banc;
using namespace support;

namespace {

QString Marqueur() {
    return FichierProfil(CheminIni()).Lire(QStringLiteral("Securite"), QStringLiteral("Erreur"));
}

void FixerMarqueur(const QString& valeur) {
    FichierProfil(CheminIni()).Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), valeur);
}

// Restauration manuelle de ce fichier à travers l'écran, jusqu'à la boîte d'échec.
bool RestaurerEnEchec(const QString& fichier) {
    ecran::Backup ecran;
    ui::RepondreFichier(fichier);
    PiloteModal pilote;
    pilote.Attendre("Backup", Cliquer("Command4"))
        .AttendreBoite(TexteManuelle, "Oui")
        .AttendreBoite(TexteConfirmation(fichier), "Oui")
        .AttendreBoite(TexteEchec, "OK")
        .Attendre("Backup", Cliquer("Command3"));
    return Piloter(ecran, pilote);
}

} // namespace

class TestRestauration : public QObject {
    Q_OBJECT
private slots:
    // Sauvegarde par l'écran, changements, restauration par l'écran, redémarrage : la base
    // est celle de la sauvegarde, ligne pour ligne, dans toutes les tables.
    void allerRetourRendLaBaseSauvegardeeLignePourLigne() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 25);
        AjouterSocieteEssai(QStringLiteral("Béta & fils"), 2025, 12);
        const QStringList avant = VidageComplet();
        const QString chemin = banc.Archives() + QStringLiteral("/aller-retour.sav");
        {
            ecran::Backup ecran;
            ui::RepondreFichier(chemin);
            ui::RepondreBoite(ui::Reponse::OK);
            PiloteModal pilote;
            pilote.Attendre("Backup", Cliquer("Command2")).Attendre("Backup", Cliquer("Command3"));
            QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        }
        // La vie continue : une société de plus, des écritures en moins, une option changée,
        // un arrêt brutal en pleine écriture.
        AjouterSocieteEssai(QStringLiteral("Gamma"), 2026, 4);
        Base().exec("DELETE FROM Ecriture WHERE NumEcr > 20");
        FichierProfil(CheminIni())
            .Ecrire(QStringLiteral("Options"), QStringLiteral("SymbEu"), QStringLiteral("F"));
        FixerMarqueur(QStringLiteral("2"));
        QVERIFY(VidageComplet() != avant);
        const QByteArray archive = Lire(chemin);

        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteConfirmation(chemin), "Oui")
            .AttendreBoite(TexteTerminee, "OK");
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::CodeFin(), 0);
        QVERIFY(!BaseOuverte());
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);

        // Redémarrage.
        OuvrirBase(banc.Chemin());
        QCOMPARE(VidageComplet(), avant);
        QCOMPARE(Marqueur(), QStringLiteral("0"));
        // Le maroval.ini en place reste en vigueur ; l'archive n'a pas bougé.
        QCOMPARE(
            FichierProfil(CheminIni()).Lire(QStringLiteral("Options"), QStringLiteral("SymbEu")),
            QStringLiteral("F"));
        QCOMPARE(Lire(chemin), archive);
        QCOMPARE(QDir(banc.Chemin()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
    }

    void restaurationManuelleVaJusquAuBout() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 7);
        const QString chemin = ArchiveDeLaBase(banc, QStringLiteral("manuelle.sav"));
        Base().exec("DELETE FROM Ecriture");
        ecran::Backup ecran;
        ui::RepondreFichier(chemin);
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command4"))
            .AttendreBoite(TexteManuelle, "Oui")
            .AttendreBoite(TexteConfirmation(chemin), "Oui")
            .AttendreBoite(TexteTerminee, "OK");
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::Ouvrir);
        QCOMPARE(ui::JournalDialogues()[0].filtre,
                 QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"));
        OuvrirBase(banc.Chemin());
        QCOMPARE(NombreEcritures(), 7);
    }

    void restaurationManuelleAnnuleeOuRefuseeNeTouchePasLaBase() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 2);
        const QStringList avant = VidageComplet();
        ecran::Backup ecran;
        ui::RepondreFichier(QString());
        ui::RepondreFichier(banc.Archives() + QStringLiteral("/x.sav"));
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command4"))
            .AttendreBoite(TexteManuelle, "Oui")
            .Attendre("Backup", Cliquer("Command4"))
            .AttendreBoite(TexteManuelle, "Oui")
            .AttendreBoite(TexteConfirmation(banc.Archives() + QStringLiteral("/x.sav")), "Non")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(!ui::FinDemandee());
        QCOMPARE(VidageComplet(), avant);
    }

    // Chaque mauvaise archive : la boîte d'échec, la base, l'historique et l'archive intacts.
    void mauvaiseArchiveLaisseBaseEtHistoriqueIntacts_data() {
        QTest::addColumn<QString>("genre");
        QTest::newRow("sans maroval.mdb") << "sans";
        QTest::newRow("archive tronquée") << "tronquee";
        QTest::newRow("maroval.mdb qui n'est pas une base") << "pasbase";
        QTest::newRow("base SQLite d'autres tables") << "autrebase";
        QTest::newRow("base endommagée") << "endommagee";
        QTest::newRow("pas une archive ZIP") << "paszip";
        QTest::newRow("fichier absent") << "absent";
    }
    void mauvaiseArchiveLaisseBaseEtHistoriqueIntacts() {
        QFETCH(QString, genre);
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 30);
        EcrireHistorique(CheminHistorique(), {{1, QStringLiteral("20240101000000"), 30,
                                               QStringLiteral("/ailleurs.sav"), 100}});
        FixerMarqueur(QStringLiteral("2"));
        const QStringList avant = VidageComplet();
        const QByteArray historique = Lire(CheminHistorique());

        FermerBase();
        const QByteArray base = Lire(banc.Fichier("maroval.mdb"));
        OuvrirBase(banc.Chemin());
        const QString chemin = banc.Archives() + QStringLiteral("/mauvaise.sav");
        if (genre == "sans") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.ini", Lire(banc.Fichier("maroval.ini"))}}));
        } else if (genre == "tronquee") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", base}}));
            const QByteArray o = Lire(chemin);
            Ecrire(chemin, o.left(o.size() * 2 / 3));
        } else if (genre == "pasbase") {
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", QByteArray(50000, 'z')}}));
        } else if (genre == "autrebase") {
            const QString autre = banc.Archives() + QStringLiteral("/autre.db");
            {
                SQLite::Database db(autre.toStdString(),
                                    SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
                db.exec("CREATE TABLE Societe (NumSoc INTEGER, Nom TEXT)");
            }
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", Lire(autre)}}));
        } else if (genre == "endommagee") {
            QByteArray abimee = base;
            // Des pages du milieu écrasées : le fichier reste une base, mais pas saine.
            for (qsizetype i = abimee.size() / 2; i < abimee.size() / 2 + 9000; ++i)
                abimee[i] = 'Q';
            QVERIFY(FabriquerZip(chemin, {{"maroval.mdb", abimee}}));
        } else if (genre == "paszip") {
            Ecrire(chemin, base);
        }
        const QByteArray archive = Lire(chemin);

        QVERIFY(RestaurerEnEchec(chemin));
        QVERIFY(!ui::FinDemandee());
        QVERIFY(BaseOuverte());
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
        QCOMPARE(VidageComplet(), avant);
        QCOMPARE(Lire(CheminHistorique()), historique);
        QCOMPARE(Lire(chemin), archive);
        // Le marqueur d'un arrêt brutal reste là pour la reprise.
        QCOMPARE(Marqueur(), QStringLiteral("2"));
        QCOMPARE(QDir(banc.Chemin()).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList());
    }

    void ligneDeCommandeSavDemandeConfirmationPuisRestaure() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 9);
        const QString chemin = ArchiveDeLaBase(banc, QStringLiteral("Double Clic.SAV"));
        Base().exec("DELETE FROM Ecriture");
        session().LigneCommande = '"' + chemin + '"';
        const QString question = QStringLiteral("Confirmez-vous la restauration de \n\"") + chemin +
                                 QStringLiteral("\" ?\n\nNOTE : Le contenu de votre base de "
                                                "données actuelle sera irrémédiablement perdu.");
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.AttendreBoite(question, "Oui").AttendreBoite(TexteTerminee, "OK");
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OuiNonAnnuler);
        OuvrirBase(banc.Chemin());
        QCOMPARE(NombreEcritures(), 9);
    }

    void ligneDeCommandeRefuseeLaisseLEcranOuvert() {
        Banc banc;
        session().LigneCommande = QStringLiteral("/tmp/quelque-part.sav");
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote
            .AttendreBoite(
                QStringLiteral("Confirmez-vous la restauration de \n/tmp/quelque-part.sav "
                               "?\n\nNOTE : Le contenu de votre base de données "
                               "actuelle sera irrémédiablement perdu."),
                "Annuler")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(!ui::FinDemandee());
        QVERIFY(BaseOuverte());
        QCOMPARE(ui::JournalBoites().size(), 1);
    }

    void ligneDeCommandeSansArchiveNeDemandeRien() {
        QVERIFY(EstArchiveLigneCommande(QStringLiteral("/a/b.sav")));
        QVERIFY(EstArchiveLigneCommande(QStringLiteral("\"/a/b c.Sav\"")));
        QVERIFY(!EstArchiveLigneCommande(QString()));
        QVERIFY(!EstArchiveLigneCommande(QStringLiteral("/a/b.sav.txt")));
        QVERIFY(!EstArchiveLigneCommande(QStringLiteral("/a/bsav")));
        Banc banc;
        session().LigneCommande = QStringLiteral("--aide");
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    // La fonction appelée par la création de société : même fin commune.
    void restaurerArchiveSertAuxAutresEcrans() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Alpha"), 2024, 4);
        const QString chemin = ArchiveDeLaBase(banc, QStringLiteral("creation.sav"));
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY(!RestaurerArchive(banc.Archives() + QStringLiteral("/absente.sav")));
        QVERIFY(BaseOuverte());
        QCOMPARE(ui::JournalBoites().last().texte, TexteEchec);
        Base().exec("DELETE FROM Ecriture");
        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY_THROWS_EXCEPTION(ui::FinProgramme, RestaurerArchive(chemin));
        QCOMPARE(ui::JournalBoites().last().texte, TexteTerminee);
        OuvrirBase(banc.Chemin());
        QCOMPARE(NombreEcritures(), 4);
    }

    void controleDUneBaseNeuveEstSain() {
        Banc banc;
        FermerBase();
        QCOMPARE(ControlerBaseRestauree(banc.Fichier("maroval.mdb")), QString());
        QVERIFY(!ControlerBaseRestauree(banc.Fichier("maroval.ini")).isEmpty());
        QVERIFY(!ControlerBaseRestauree(banc.Fichier("absente.mdb")).isEmpty());
        OuvrirBase(banc.Chemin());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestRestauration test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_restauration.moc"
