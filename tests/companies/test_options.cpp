// Options (symbole, décimales, démarrage), remise des fenêtres à leur taille d'origine,
// souvenir des tailles et des colonnes, panneau de conseils, écran "A propos".

#include "Essai.h"

#include "base/Montant.h"
#include "base/Reglages.h"
#include "companies/APropos.h"
#include "companies/Options.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/BoiteAide.h"
#include "ui/Grille.h"
#include "ui/Personalisation.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace support;
using essai::TexteChamp;

class TestOptions : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;

    template <class E> std::unique_ptr<E> Montrer() {
        auto e = std::make_unique<E>();
        e->show();
        QCoreApplication::processEvents();
        return e;
    }

    // Un écran "Journal" avec sa grille "Tree1" de trois colonnes.
    static ui::Grille* EcranJournal(QWidget& ecran) {
        ecran.setObjectName("Journal");
        auto* grille = new ui::Grille(&ecran);
        grille->setObjectName("Tree1");
        grille->FixerColonnes({"Date", "Compte", "Libellé"});
        return grille;
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        ecran::APropos::FixerVerification({});
    }
    void cleanup() {
        ecran::APropos::FixerVerification({});
        FermerBase();
        dossier.reset();
    }

    void options_ouverture_litLeFichierEtLeReglage() {
        FichierProfil ini(CheminIni());
        QVERIFY(ini.Ecrire("Options", "SymbEu", "€"));
        QVERIFY(ini.Ecrire("Options", "NbDecimales", "3"));
        EcrireReglage("Options", "Demarrage", "1");
        auto e = Montrer<ecran::Options>();
        QCOMPARE(e->objectName(), QStringLiteral("Options"));
        QCOMPARE(TexteChamp(e.get(), "Text2"), QStringLiteral("€"));
        QCOMPARE(TexteChamp(e.get(), "Text1"), QStringLiteral("3"));
        QVERIFY(e->findChild<QCheckBox*>("Check1")->isChecked());
        QCOMPARE(e->findChild<QCheckBox*>("Check1")->text(),
                 QStringLiteral("Préselectionner Société et Exercice au démarrage"));
        QCOMPARE(e->findChild<QPushButton*>("Command3")->text(),
                 QStringLiteral("Réinitialiser les fenêtres"));
    }

    void options_decimalesNonNumeriques_refusees() {
        auto e = Montrer<ecran::Options>();
        TaperTexte(e.get(), "Text1", "deux");
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command1");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Votre nombre de décimales doit être exclusivement numérique."}));
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Attention"));
        QVERIFY(e->isVisible());
        QCOMPARE(FichierProfil(CheminIni()).Lire("Options", "NbDecimales"), QStringLiteral("2"));
    }

    void options_validation_ecritEtRebatitLeFormat() {
        auto e = Montrer<ecran::Options>();
        TaperTexte(e.get(), "Text2", " € ");
        TaperTexte(e.get(), "Text1", "3");
        e->findChild<QCheckBox*>("Check1")->setChecked(true);
        CliquerBouton(e.get(), "Command1");
        QVERIFY(!e->isVisible());
        FichierProfil ini(CheminIni());
        QCOMPARE(ini.Lire("Options", "NbDecimales"), QStringLiteral("3"));
        QCOMPARE(session().SymboleMonnaie, QStringLiteral("€"));
        QCOMPARE(session().Decimales, QStringLiteral("0.000"));
        QCOMPARE(session().FormatMontant, QStringLiteral("### ### ### ##0.000 €"));
        QCOMPARE(LireReglage("Options", "Demarrage"), QStringLiteral("1"));
    }

    // Le dossier des disquettes : /media/floppy tant que rien n'est réglé, puis celui tapé.
    void options_dossierDesDisquettes() {
        auto e = Montrer<ecran::Options>();
        QCOMPARE(TexteChamp(e.get(), "TextDisquette"), QStringLiteral("/media/floppy"));
        const QString cle = dossier->Fichier("cle-usb");
        TaperTexte(e.get(), "TextDisquette", cle);
        CliquerBouton(e.get(), "Command1");
        QCOMPARE(FichierProfil(CheminIni()).Lire("Options", "Disquette"), cle);
        QCOMPARE(DossierDisquette(), cle);
    }

    void options_zeroDecimale_montantsSansSeparateur() {
        auto e = Montrer<ecran::Options>();
        TaperTexte(e.get(), "Text1", "0");
        e->findChild<QCheckBox*>("Check1")->setChecked(false);
        CliquerBouton(e.get(), "Command1");
        QCOMPARE(session().Decimales, QStringLiteral("0"));
        QCOMPARE(FormaterMontant(Montant::depuisCentimes(123456), session().FormatMontant),
                 QStringLiteral("1 235 E"));
        QCOMPARE(LireReglage("Options", "Demarrage"), QStringLiteral("0"));
    }

    void options_quitterNeChangeRien() {
        auto e = Montrer<ecran::Options>();
        TaperTexte(e.get(), "Text1", "5");
        CliquerBouton(e.get(), "Command2");
        QVERIFY(!e->isVisible());
        QCOMPARE(FichierProfil(CheminIni()).Lire("Options", "NbDecimales"), QStringLiteral("2"));
    }

    void reinitialiser_sansRienDeGarde_montreQuandMemeLeMessage() {
        auto e = Montrer<ecran::Options>();
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command3");
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Les tailles des fenêtre ont été réinitialisées à leur taille "
                              "d'origine."}));
        QCOMPARE(ui::JournalBoites()[0].titre, QStringLiteral("Maroval"));
    }

    void reinitialiser_effaceLesTreizeSections() {
        for (const QString& section : ecran::SectionsFenetres())
            EcrireReglage(section, "width", "640");
        EcrireReglage("Societe", "Exercice", "2024");
        auto e = Montrer<ecran::Options>();
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e.get(), "Command3");
        QCOMPARE(ecran::SectionsFenetres().size(), 13);
        for (const QString& section : ecran::SectionsFenetres())
            QCOMPARE(LireReglage(section, "width", "vide"), QStringLiteral("vide"));
        QCOMPARE(LireReglage("Societe", "Exercice"), QStringLiteral("2024"));
    }

    void personalisations_tailleEtColonnesRetrouvees() {
        QWidget journal;
        ui::Grille* grille = EcranJournal(journal);
        journal.resize(500, 300);
        journal.move(40, 30);
        const int largeurOrigine = grille->LargeurColonne(2);
        grille->FixerLargeurColonne(0, 90);
        grille->FixerLargeurColonne(1, 130);
        ui::SauverPersonalisations(&journal, {grille});
        QCOMPARE(LireReglage("JournalForm", "width"), QStringLiteral("500"));
        QCOMPARE(LireReglage("JournalForm", "height"), QStringLiteral("300"));
        QCOMPARE(LireReglage("JournalTree1", "col1"), QStringLiteral("130"));

        QWidget autre;
        ui::Grille* grille2 = EcranJournal(autre);
        autre.resize(200, 100);
        EffacerReglage("JournalTree1", "col2");
        ui::RestaurerPersonalisations(&autre, {grille2});
        QCOMPARE(autre.size(), QSize(500, 300));
        QCOMPARE(autre.pos(), QPoint(40, 30));
        QCOMPARE(grille2->LargeurColonne(0), 90);
        QCOMPARE(grille2->LargeurColonne(1), 130);
        QCOMPARE(grille2->LargeurColonne(2), largeurOrigine);
    }

    void personalisations_rienDeGarde_gardeLaTailleDeLEcran() {
        QWidget bilan;
        bilan.setObjectName("Bilan");
        bilan.resize(321, 234);
        ui::RestaurerPersonalisations(&bilan, {});
        QCOMPARE(bilan.size(), QSize(321, 234));
    }

    void boiteAide_messagesSepares_suivantRevientAuPremier() {
        ui::BoiteAide boite;
        boite.show();
        auto* texte = boite.findChild<QLabel*>("LBAide");
        auto* suivant = boite.findChild<QPushButton*>("BTMsgSuivant");
        QVERIFY(boite.findChild<QLabel*>("Image2"));
        boite.setProperty("MessageAide", "Choisissez un compte.|Tapez le montant.|Validez.");
        QCOMPARE(boite.Messages().size(), 3);
        QCOMPARE(texte->text(), QStringLiteral("Choisissez un compte."));
        QVERIFY(suivant->isVisible());
        QStringList vus;
        for (int i = 0; i < 3; ++i) {
            QTest::mouseClick(suivant, Qt::LeftButton);
            vus << texte->text();
        }
        QCOMPARE(vus, QStringList({"Tapez le montant.", "Validez.", "Choisissez un compte."}));
        boite.FixerMessageAide("Un seul conseil.");
        QCOMPARE(texte->text(), QStringLiteral("Un seul conseil."));
        QVERIFY(!suivant->isVisible());
    }

    void apropos_versionEtFermeture() {
        auto e = Montrer<ecran::APropos>();
        QCOMPARE(e->objectName(), QStringLiteral("APropos"));
        QCOMPARE(e->windowTitle(), QStringLiteral("A propos de Maroval"));
        QCOMPARE(e->findChild<QLabel*>("LBVersion")->text(),
                 QStringLiteral("Version ") + QStringLiteral(MAROVAL_VERSION));
        CliquerBouton(e.get(), "Command1");
        QVERIFY(!e->isVisible());
    }

    void apropos_ctrlV_nonNeLancePasLaVerification() {
        int appels = 0;
        ecran::APropos::FixerVerification([&] {
            ++appels;
            return true;
        });
        auto e = Montrer<ecran::APropos>();
        ui::RepondreBoite(ui::Reponse::Non);
        QTest::keyClick(e->findChild<QPushButton*>("Command1"), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(essai::TextesBoites(),
                 QStringList({"Voulez-vous lancer la fonction de vérification de la "
                              "comptabilité ?"}));
        QCOMPARE(appels, 0);
        // La lettre V seule ne fait rien.
        QTest::keyClick(e->findChild<QPushButton*>("Command1"), Qt::Key_V);
        QCOMPARE(ui::JournalBoites().size(), 1);
    }

    void apropos_ctrlV_correcte_ouiOuvreVerifTxt() {
        ecran::APropos::FixerVerification([] { return true; });
        auto e = Montrer<ecran::APropos>();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        QTest::keyClick(e->findChild<QPushButton*>("Command1"), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(ui::JournalBoites().size(), 2);
        QCOMPARE(ui::JournalBoites()[1].texte,
                 QStringLiteral("La vérification est correcte\n\nVoulez-vous afficher le texte "
                                "de la vérification ?"));
        QCOMPARE(ui::JournalDialogues().size(), 1);
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::OuvrirFichier);
        QCOMPARE(ui::JournalDialogues()[0].detail, dossier->Fichier("verif.txt"));
    }

    void apropos_ctrlV_erreur_nonNOuvreRien() {
        ecran::APropos::FixerVerification([] { return false; });
        auto e = Montrer<ecran::APropos>();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Non);
        QTest::keyClick(e->findChild<QPushButton*>("Command1"), Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(ui::JournalBoites()[1].texte,
                 QStringLiteral("Erreur dans la vérification\n\nVoulez-vous afficher le texte "
                                "de la vérification ?"));
        QVERIFY(ui::JournalDialogues().isEmpty());
        QVERIFY(e->isVisible());
    }

    void apropos_verificationDuMoteur_exerciceNeufCorrecte() {
        const int n = essai::Societe("Boulangerie Martin");
        essai::AjouterAnnee(n, 2024);
        session().NumSocCourante = static_cast<std::int16_t>(n);
        session().ExerciceCourant = 2024;
        auto e = Montrer<ecran::APropos>();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Non);
        QTest::keyClick(e->findChild<QPushButton*>("Command1"), Qt::Key_V, Qt::ControlModifier);
        QVERIFY(ui::JournalBoites()[1].texte.startsWith("La vérification est correcte"));
        QVERIFY(QFile::exists(dossier->Fichier("verif.txt")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestOptions t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_options.moc"
