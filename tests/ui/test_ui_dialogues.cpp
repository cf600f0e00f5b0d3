// Dialogues de fichiers, d'impression et ouverture d'un fichier : réponses d'avance,
// journal, et vrai dialogue piloté.
#include "support/DossierEssai.h"
#include "support/PiloteModal.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QAbstractButton>
#include <QFile>
#include <QPrinter>
#include <QtTest>

using namespace ui;
using namespace support;

class TestDialogues : public QObject {
    Q_OBJECT
private slots:
    void init() { RemettreServicesAZero(); }

    void filtresALaManiereDesAnciensDialogues() {
        QCOMPARE(FiltreQt("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"),
                 QString("Sauvegarde (*.sav);;Tous (*)"));
        QCOMPARE(FiltreQt("CSV (*.csv)|*.csv"), QString("CSV (*.csv)"));
        QCOMPARE(FiltreQt("Texte (*.txt)|*.txt"), QString("Texte (*.txt)"));
        QCOMPARE(FiltreQt("Classeurs|*.csv;*.txt"), QString("Classeurs (*.csv *.txt)"));
        QCOMPARE(FiltreQt("Images (*.png)"), QString("Images (*.png)"));
        QCOMPARE(FiltreQt(""), QString(""));
    }

    void reponsesDAvanceEtJournal() {
        RepondreFichier("/tmp/a.sav");
        RepondreFichier(QString());
        QCOMPARE(ChoisirFichierOuvrir("Restaurer", "/tmp", "Sauvegarde (*.sav)|*.sav"),
                 QString("/tmp/a.sav"));
        QCOMPARE(ChoisirFichierEnregistrer("Exporter", "Balance.csv", "CSV (*.csv)|*.csv"),
                 QString());
        QCOMPARE(JournalDialogues().size(), 2);
        const EntreeDialogue& ouvrir = JournalDialogues()[0];
        QCOMPARE(ouvrir.dialogue, Dialogue::Ouvrir);
        QCOMPARE(ouvrir.titre, QString("Restaurer"));
        QCOMPARE(ouvrir.detail, QString("/tmp"));
        QCOMPARE(ouvrir.filtre, QString("Sauvegarde (*.sav)|*.sav"));
        QCOMPARE(ouvrir.resultat, QString("/tmp/a.sav"));
        QVERIFY(ouvrir.accepte);
        const EntreeDialogue& enregistrer = JournalDialogues()[1];
        QCOMPARE(enregistrer.dialogue, Dialogue::Enregistrer);
        QCOMPARE(enregistrer.detail, QString("Balance.csv"));
        QVERIFY(!enregistrer.accepte);
        ViderJournalDialogues();
        QVERIFY(JournalDialogues().isEmpty());
    }

    void imprimanteAccepteeOuAnnulee() {
        QPrinter imprimante;
        RepondreImprimante(true);
        RepondreImprimante(false);
        QVERIFY(ChoisirImprimante(imprimante));
        QVERIFY(!ChoisirImprimante(imprimante));
        QCOMPARE(JournalDialogues().size(), 2);
        QCOMPARE(JournalDialogues()[0].dialogue, Dialogue::Imprimante);
        QVERIFY(JournalDialogues()[0].accepte);
        QVERIFY(!JournalDialogues()[1].accepte);
    }

    void ouvrirUnFichierEnEssaiNeLanceRien() {
        QVERIFY(ModeEssai());
        QVERIFY(OuvrirFichier("/tmp/inexistant-maroval.csv"));
        RepondreOuvertureFichier(false);
        QVERIFY(!OuvrirFichier("/tmp/balance.csv"));
        QCOMPARE(JournalDialogues().size(), 2);
        QCOMPARE(JournalDialogues()[0].dialogue, Dialogue::OuvrirFichier);
        QCOMPARE(JournalDialogues()[0].detail, QString("/tmp/inexistant-maroval.csv"));
        QVERIFY(!JournalDialogues()[1].accepte);
        OublierReponsesDialogues();
    }

    void vraiDialogueEnregistrerPiloteRendLeFichierTape() {
        DossierEssai dossier;
        const QString chemin = dossier.Fichier("Balance.csv");
        QString titre, libelleAccepter;
        PiloteModal pilote;
        pilote.Attendre("ChoixFichier", [&](QWidget* f) {
            titre = f->windowTitle();
            if (auto* b = TrouverBouton(f, "Enregistrer")) libelleAccepter = b->text();
            TaperTexte(f, "fileNameEdit", chemin);
            AppuyerTouche(f, Qt::Key_Return, "fileNameEdit");
        });
        pilote.Demarrer();
        const QString choisi = ChoisirFichierEnregistrer("Export vers Excel", "Balance.csv",
                                                         "CSV (*.csv)|*.csv", dossier.Chemin());
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(choisi, chemin);
        QCOMPARE(titre, QString("Export vers Excel"));
        QCOMPARE(libelleAccepter, QString("Enregistrer"));
        QCOMPARE(JournalDialogues().last().resultat, chemin);
    }

    void remplacerUnFichierExistantSeConfirmeEnFrancais() {
        DossierEssai dossier;
        const QString chemin = dossier.Fichier("Journal.csv");
        QFile fichier(chemin);
        QVERIFY(fichier.open(QIODevice::WriteOnly));
        fichier.close();
        PiloteModal pilote;
        pilote
            .Attendre("ChoixFichier", Suite({Taper("fileNameEdit", chemin),
                                             Touche(Qt::Key_Return, "fileNameEdit")}))
            .AttendreBoite("Journal.csv existe déjà.\nVoulez-vous le remplacer ?", "Non")
            .Attendre("ChoixFichier", Fermer());
        pilote.Demarrer();
        const QString choisi = ChoisirFichierEnregistrer("Export", "Journal.csv",
                                                         "CSV (*.csv)|*.csv", dossier.Chemin());
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(choisi, QString());
        QCOMPARE(JournalBoites().size(), 1);
        QCOMPARE(JournalBoites()[0].titre, QString("Confirmer l'enregistrement"));
        QCOMPARE(JournalBoites()[0].boutonParDefaut, 2);
        QVERIFY(!JournalDialogues().last().accepte);
    }

    void vraiDialogueOuvrirAnnuleRendVide() {
        DossierEssai dossier;
        PiloteModal pilote;
        pilote.Attendre("ChoixFichier", Cliquer("Annuler"));
        pilote.Demarrer();
        QCOMPARE(ChoisirFichierOuvrir("Restauration", dossier.Chemin(),
                                      "Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"),
                 QString());
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
    }

    void vraiDialogueImprimanteAnnule() {
        QPrinter imprimante;
        PiloteModal pilote;
        QString titre;
        pilote.Attendre("ChoixImprimante", [&](QWidget* f) {
            titre = f->windowTitle();
            Fermer()(f);
        });
        pilote.Demarrer();
        QVERIFY(!ChoisirImprimante(imprimante));
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(titre, QString("Imprimer"));
        QVERIFY(!JournalDialogues().last().accepte);
    }
};

QTEST_MAIN(TestDialogues)
#include "test_ui_dialogues.moc"
