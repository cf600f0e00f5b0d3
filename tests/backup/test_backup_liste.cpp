// La liste des sauvegardes de l'écran : lignes inaccessibles, taille différente, aucune ou
// plusieurs lignes choisies, suppression par la touche Suppr.
#include "BancSauvegarde.h"
#include "EcranSauvegarde.h"
#include "backup/Backup.h"
#include "backup/Historique.h"
#include "backup/ZipBiblio.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"

#include <QtTest>

using namespace banc;
using namespace support;

namespace {

LigneHistorique Ligne(qint64 id, const QString& date, const QString& fichier, qint64 taille) {
    return {id, date, 10 * id, fichier, taille};
}

QString TexteTaille(qint64 lue, qint64 memorisee) {
    return QStringLiteral("La taille de votre fichier de sauvegarde (%1)\nest différente\nde "
                          "celle mémorisée lors de la sauvegarde (%2)\n\nVotre sauvegarde est "
                          "probablement endommagée.\n\nSouhaitez-vous continuer tout de même ?")
        .arg(lue)
        .arg(memorisee);
}

} // namespace

class TestBackupListe : public QObject {
    Q_OBJECT
private slots:
    void listeTrieeSurLaDateAvecDonneesDeCelluleEtProchainHistoID() {
        Banc banc;
        const QString a = ArchiveDeLaBase(banc, QStringLiteral("a.sav"));
        EcrireHistorique(CheminHistorique(), {Ligne(4, "20240315101112", a, 77),
                                              Ligne(12, "20240102030405", "/nulle/part.sav", 5),
                                              {3, std::nullopt, 0, std::nullopt, 0}});
        ecran::Backup ecran;
        ui::Grille* g = Liste(&ecran);
        QCOMPARE(g->NombreLignes(), 3);
        QCOMPARE(ecran.ProchainHistoID, 13);
        QCOMPARE(g->Texte(0, 0), QStringLiteral("// ::"));
        QCOMPARE(g->Texte(1, 0), QStringLiteral("02/01/2024 03:04:05"));
        QCOMPARE(g->Texte(1, 1), QStringLiteral("120 écritures"));
        QCOMPARE(g->Texte(1, 3), QStringLiteral("Non"));
        QCOMPARE(g->DonneeCellule(1, 0).toLongLong(), 12);
        QCOMPARE(g->DonneeCellule(1, 2).toLongLong(), 5);
        QCOMPARE(g->Texte(2, 0), QStringLiteral("15/03/2024 10:11:12"));
        QCOMPARE(g->Texte(2, 2), a);
        QCOMPARE(g->Texte(2, 3), QStringLiteral("Oui"));
        QCOMPARE(g->Texte(0, 3), QStringLiteral("Non"));
        // "Non" a sa propre couleur.
        QVERIFY(g->CouleurTexte(1, 3) != g->CouleurTexte(2, 3));
        QCOMPARE(g->CouleurTexte(1, 3), g->CouleurTexte(0, 3));
    }

    void ligneDontLeFichierAdisparuBoucleJusquAuRetourDuFichier() {
        Banc banc;
        const QString archive = ArchiveDeLaBase(banc, QStringLiteral("origine.sav"));
        const QString chemin = banc.Archives() + QStringLiteral("/cle/sauvegarde.sav");
        EcrireHistorique(CheminHistorique(),
                         {Ligne(1, "20240601120000", chemin, QFileInfo(archive).size())});
        ecran::Backup ecran;
        QCOMPARE(Liste(&ecran)->Texte(0, 3), QStringLiteral("Non"));
        QString accessibleApres;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteInaccessible, "OK") // toujours absent : la boîte revient
            .AttendreBoite(TexteInaccessible,
                           [&](QWidget* b) {
                               // L'utilisateur rebranche sa clé.
                               QDir().mkpath(banc.Archives() + QStringLiteral("/cle"));
                               QFile::copy(archive, chemin);
                               CliquerBouton(b, "OK");
                           })
            .AttendreBoite(TexteConfirmation(chemin), "Non")
            .Attendre("Backup", [&](QWidget* e) {
                accessibleApres = Liste(e)->Texte(0, 3);
                CliquerBouton(e, "Command3");
            });
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(accessibleApres, QStringLiteral("Oui"));
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OKAnnuler);
        QCOMPARE(ui::JournalBoites()[2].titre, QStringLiteral("Confirmation"));
        QVERIFY(!ui::FinDemandee());
        QVERIFY(BaseOuverte());
    }

    void ligneInaccessibleAnnulerArreteTout() {
        Banc banc;
        EcrireHistorique(CheminHistorique(), {Ligne(1, "20240601120000", "/disparu.sav", 1)});
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteInaccessible, "Annuler")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites().size(), 1);
    }

    void tailleDifferentePoseLaQuestionEtNonArrete() {
        Banc banc;
        const QString archive = ArchiveDeLaBase(banc, QStringLiteral("taille.sav"));
        const qint64 taille = QFileInfo(archive).size();
        EcrireHistorique(CheminHistorique(), {Ligne(1, "20240601120000", archive, taille + 3)});
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteTaille(taille, taille + 3), "Non")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites().size(), 1);
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OuiNon);
        QVERIFY(!ui::FinDemandee());
    }

    void tailleDifferenteOuiPoursuitLaRestauration() {
        Banc banc;
        AjouterSocieteEssai(QStringLiteral("Avant"), 2024, 3);
        const QString archive = ArchiveDeLaBase(banc, QStringLiteral("taille.sav"));
        const qint64 taille = QFileInfo(archive).size();
        EcrireHistorique(CheminHistorique(), {Ligne(1, "20240601120000", archive, taille - 1)});
        AjouterSocieteEssai(QStringLiteral("Apres"), 2024, 5);
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteTaille(taille, taille - 1), "Oui")
            .AttendreBoite(TexteConfirmation(archive), "Oui")
            .AttendreBoite(TexteTerminee, "OK");
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::CodeFin(), 0);
        OuvrirBase(banc.Chemin());
        QCOMPARE(NombreEcritures(), 3);
    }

    void aucuneLigneChoisieProposeLaRestaurationManuelle() {
        Banc banc;
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteAucuneSelection, "Oui")
            .AttendreBoite(TexteManuelle, "Non")
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(TexteAucuneSelection, "Annuler")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Confirmation"));
        QCOMPARE(ui::JournalBoites()[0].boutons, ui::Boutons::OuiNonAnnuler);
        QCOMPARE(ui::JournalBoites().size(), 3);
        QVERIFY(ui::JournalDialogues().isEmpty());
    }

    void plusieursLignesChoisiesSontRefusees() {
        Banc banc;
        EcrireHistorique(CheminHistorique(), {Ligne(1, "20240601120000", "/a.sav", 1),
                                              Ligne(2, "20240602120000", "/b.sav", 1)});
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0, 1}))
            .Attendre("Backup", Cliquer("Command1"))
            .AttendreBoite(QStringLiteral("Vous ne pouvez sélectionner qu'une seule sauvegarde "
                                          "pour effectuer une restauration."),
                           "OK")
            .Attendre("Backup", Cliquer("Command3"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites()[0].icone, ui::Icone::Information);
    }

    void supprSupprimeLesLignesChoisiesEtLeFichierSurDemande() {
        Banc banc;
        const QString garde = ArchiveDeLaBase(banc, QStringLiteral("garde.sav"));
        const QString jete = ArchiveDeLaBase(banc, QStringLiteral("jete.sav"));
        EcrireHistorique(CheminHistorique(),
                         {Ligne(1, "20240101000000", garde, 1), Ligne(2, "20240201000000", jete, 1),
                          Ligne(3, "20240301000000", "/absent.sav", 1),
                          Ligne(4, "20240401000000", garde, 1)});
        ecran::Backup ecran;
        const QString question = QStringLiteral("Voulez-vous supprimer le fichier de sauvegarde en "
                                                "même temps que l'entrée dans l'historique ?\n\n");
        int lignesApres = -1;
        PiloteModal pilote;
        pilote.Attendre("Backup", ChoisirLignes({0, 1, 2}))
            .Attendre("Backup", Touche(Qt::Key_Delete, "SftTree1"))
            .AttendreBoite(question + garde, "Non")
            .AttendreBoite(question + jete, "Oui")
            .Attendre("Backup", [&](QWidget* e) {
                lignesApres = Liste(e)->NombreLignes();
                CliquerBouton(e, "Command3");
            });
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QCOMPARE(ui::JournalBoites().size(), 2); // aucune question pour la ligne inaccessible
        QCOMPARE(lignesApres, 1);
        QVERIFY(QFile::exists(garde));
        QVERIFY(!QFile::exists(jete));
        const QList<LigneHistorique> h = LireHistorique(CheminHistorique());
        QCOMPARE(h.size(), 1);
        QCOMPARE(h[0].HistoID, 4);
    }

    void abandonFermeLEcran() {
        Banc banc;
        ecran::Backup ecran;
        PiloteModal pilote;
        pilote.Attendre("Backup", Cliquer("&Abandon"));
        QVERIFY2(Piloter(ecran, pilote), qPrintable(pilote.Echec()));
        QVERIFY(!ecran.isVisible());
        QVERIFY(ui::JournalBoites().isEmpty());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBackupListe test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_backup_liste.moc"
