// L'écran Editions : base d'extraction refaite à chaque ouverture, symbole monétaire du
// système échangé puis rendu, états écrits en PDF par les boutons, impression annulée,
// aperçu, centralisateur et sa jauge, échec de l'extraction, messages du moteur.
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/PiloteModal.h"

#include "base/Reglages.h"
#include "reports/Editions.h"
#include "reports/Impression.h"
#include "session/Session.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Grille.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

using essai::Euros;
using ui::Reponse;

namespace {

int Lignes(const QString& base, const std::string& sql) {
    SQLite::Database db(base.toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement q(db, sql);
    return q.executeStep() ? q.getColumn(0).getInt() : -1;
}

void Cliquer(QWidget& e, const char* nom) {
    QTest::mouseClick(e.findChild<QPushButton*>(nom), Qt::LeftButton);
}

} // namespace

class TestEditions : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    QString Sauve() const { return dossier->Fichier("sauve.mdb"); }

    // Un état par son bouton, écrit dans ce PDF ; rend le texte du fichier.
    QString EnPdf(ecran::Editions& e, const char* bouton, const QString& nom) {
        e.findChild<QCheckBox*>("CBPdf")->setChecked(true);
        const QString chemin = dossier->Fichier(nom);
        ui::RepondreFichier(chemin);
        Cliquer(e, bouton);
        return essai::TextePdf(chemin);
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        session().SymboleMonnaie = QStringLiteral("E");
        essai::Ecriture("05/02/2024", "V",
                        {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        essai::Ecriture("10/03/2024", "V",
                        {{"411001", "D", 60}, {"707", "C", 50}, {"44571", "C", 10}});
        essai::Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        EcrireReglage("intl", "sCurrency", "€");
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ui::OublierReponsesDialogues();
        FermerBase();
        dossier.reset();
    }

    void ouverture_extractionEtSymboleRendu() {
        {
            ecran::Editions e;
            QVERIFY(e.Pret());
            QCOMPARE(e.windowTitle(), QStringLiteral("Editions"));
            QCOMPARE(Lignes(Sauve(), "SELECT count(*) FROM Ecriture WHERE CleCpt='012024'"), 8);
            QCOMPARE(Lignes(Sauve(), "SELECT count(*) FROM Compte"),
                     essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012024'"));
            QCOMPARE(LireReglage("intl", "sCurrency"), QStringLiteral("E"));
            QCOMPARE(e.findChild<QComboBox*>("Combo1")->count(), 13);
            e.show();
            Cliquer(e, "Command3");
        }
        QCOMPARE(LireReglage("intl", "sCurrency"), QStringLiteral("€"));
        // Une seconde ouverture prend les écritures passées entre-temps.
        essai::Ecriture("25/03/2024", "T", {{"512", "D", 10}, {"411001", "C", 10}});
        ecran::Editions e;
        QCOMPARE(Lignes(Sauve(), "SELECT count(*) FROM Ecriture"), 10);
    }

    void balanceEtJournalDuMoisEnPdf() {
        ecran::Editions e;
        e.show();
        QString t = EnPdf(e, "Command2", "balance.pdf");
        QVERIFY2(t.contains("BALANCE GENERALE"), qPrintable(t));
        QVERIFY(t.contains("Page 1 / 1"));
        QVERIFY(t.contains("707"));
        e.findChild<QComboBox*>("Combo1")->setCurrentIndex(3);
        t = EnPdf(e, "Command11", "ventes-mars.pdf");
        QVERIFY2(t.contains("JOURNAL DES VENTES - Mars"), qPrintable(t));
        QVERIFY(t.contains("10/03/2024"));
        QVERIFY(!t.contains("05/02/2024"));
        t = EnPdf(e, "Command7", "grand-livre.pdf");
        QVERIFY(t.contains("GRAND LIVRE"));
        QVERIFY(Lignes(Sauve(), "SELECT count(*) FROM GrandLiv") > 0);
        t = EnPdf(e, "Command5", "bilan.pdf");
        QVERIFY(t.contains("ACTIF") && t.contains("PASSIF"));
        t = EnPdf(e, "Command8", "plan.pdf");
        QVERIFY(t.contains("PLAN COMPTABLE") && t.contains("2154"));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    void centralisateur_jaugePuisPdf() {
        ecran::Editions e;
        e.show();
        QList<int> valeurs;
        connect(e.findChild<QProgressBar*>("Gauge1"), &QProgressBar::valueChanged, &e,
                [&](int v) { valeurs << v; });
        const QString t = EnPdf(e, "Command16", "centralisateur.pdf");
        QCOMPARE(valeurs, (QList<int>{10, 20, 30, 40, 50, 60}));
        QVERIFY(e.findChild<QProgressBar*>("Gauge1")->isHidden());
        QVERIFY(t.contains("JOURNAL CENTRALISATEUR"));
        QVERIFY(t.contains("Journal des Ventes"));
    }

    void impressionAnnulee_messageEtRienDePlus() {
        ecran::Editions e;
        e.show();
        ui::RepondreImprimante(false);
        ui::RepondreBoite(Reponse::OK);
        Cliquer(e, "Command9");
        QCOMPARE(ui::JournalBoites().last().texte, QStringLiteral("L'impression est annulée."));
        QVERIFY(ui::JournalDialogues().last().dialogue == ui::Dialogue::Imprimante);
        // Le fichier PDF refusé au dialogue : même message.
        e.findChild<QCheckBox*>("CBPdf")->setChecked(true);
        ui::RepondreFichier(QString());
        ui::RepondreBoite(Reponse::OK);
        Cliquer(e, "Command10");
        QCOMPARE(ui::JournalBoites().size(), 2);
        QCOMPARE(ui::JournalBoites().last().texte, QStringLiteral("L'impression est annulée."));
    }

    void imprimante_choisieAlorsApercu() {
        ecran::Editions e;
        e.show();
        ui::RepondreImprimante(true);
        ui::RepondreApercu(false);
        Cliquer(e, "Command9");
        const ui::EntreeDialogue& d = ui::JournalDialogues().last();
        QVERIFY(d.dialogue == ui::Dialogue::Apercu);
        QCOMPARE(d.titre, QStringLiteral("BALANCE CLIENTS"));
        QVERIFY(ui::JournalBoites().isEmpty());
    }

    // Edition d'un compte : la liste, ses chiffres, la question, puis son grand livre seul.
    void editionDUnCompte_parSaListe() {
        ecran::Editions e;
        e.show();
        e.findChild<QCheckBox*>("CBPdf")->setChecked(true);
        const QString chemin = dossier->Fichier("compte-512.pdf");
        QString solde, titre;
        int lignes = 0;
        support::PiloteModal pilote;
        pilote.Attendre("EditCpt", [&](QWidget* w) {
            titre = w->windowTitle();
            auto* liste = w->findChild<ui::Grille*>("Tree1");
            lignes = liste->NombreLignes();
            support::CliquerCellule(liste, liste->ChercherTexte(0, "512"), 0);
            solde = w->findChild<QLabel*>("Label9")->text();
            ui::RepondreBoite(Reponse::Oui);
            ui::RepondreFichier(chemin);
            support::CliquerBouton(w, "Command1");
            support::CliquerBouton(w, "Command2");
        });
        pilote.Demarrer();
        Cliquer(e, "Command6");
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QCOMPARE(titre, QStringLiteral("Edition d'un compte"));
        QCOMPARE(lignes, essai::Compter("SELECT count(*) FROM Compte WHERE CleCpt='012024'"));
        QCOMPARE(solde, FormaterMontant(essai::LireCpt("512").Solde, session().FormatMontant));
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Voulez-vous éditer le compte 512 ?"));
        const QString t = essai::TextePdf(chemin);
        QVERIFY2(t.contains("EDITION D'UN COMPTE"), qPrintable(t));
        QVERIFY(t.contains("512"));
        QVERIFY(!t.contains("411001"));
        QVERIFY(e.isVisible());
        QCOMPARE(Lignes(Sauve(), "SELECT count(DISTINCT NumCpt) FROM GrandLiv"), 1);
    }

    // "Quitter" de l'édition d'un compte ferme aussi l'écran des éditions ; le symbole du
    // système est rendu.
    void editionDUnCompte_quitterFermeLesDeux() {
        support::PiloteModal pilote;
        pilote.Attendre("Editions", support::Cliquer("Command6"))
            .Attendre("EditCpt", support::Cliquer("Command4"));
        pilote.Demarrer();
        ecran::Editions e;
        e.FixerDebutChaine(true);
        e.exec();
        QVERIFY2(pilote.Reussi(), qPrintable(pilote.Echec()));
        QVERIFY(!e.isVisible());
        QCOMPARE(LireReglage("intl", "sCurrency"), QStringLiteral("€"));
    }

    void capture_ecranDesEditions() {
        ecran::Editions e;
        e.show();
        QVERIFY(QTest::qWaitForWindowExposed(&e));
        const QImage image = e.grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("editions.png")));
        Cliquer(e, "Command3");
    }

    void extractionImpossible_boiteEtEcranFerme() {
        QVERIFY(QDir().mkpath(Sauve() + "/occupe"));
        ui::RepondreBoite(Reponse::OK);
        ecran::Editions e;
        QVERIFY(!e.Pret());
        const QString dossierNatif = QDir::toNativeSeparators(dossier->Chemin());
        QCOMPARE(ui::JournalBoites().last().titre, QStringLiteral("Problème"));
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("Problème de recopie de %1/sauveb.mdb vers %1/sauve.mdb.\n"
                                "Supprimez manuellement le fichier %1/sauve.mdb et recommencez.")
                     .arg(dossierNatif));
        QCOMPARE(LireReglage("intl", "sCurrency"), QStringLiteral("E"));
        e.done(0);
        QCOMPARE(LireReglage("intl", "sCurrency"), QStringLiteral("€"));
    }

    void messagesDuMoteur_tableEntiere() {
        QCOMPARE(rapport::TexteErreurRapport(999), QStringLiteral("(Erreur 999) Erreur interne."));
        QCOMPARE(rapport::TexteErreurRapport(526),
                 QStringLiteral("(Erreur 526) Vous n'avez pas spécifié d'imprimante par défaut. "
                                "Faites-le à l'aide du Panneau de configuration Windows."));
        int connus = 0;
        for (int code = 500; code <= 999; ++code)
            connus += rapport::TexteErreurRapport(code).isEmpty() ? 0 : 1;
        QCOMPARE(connus, 45);
        ui::RepondreBoite(Reponse::OK);
        rapport::MessageErreurRapport(12345);
        QCOMPARE(ui::JournalBoites().last().texte, QString());
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestEditions test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_editions.moc"
