// L'écran Fiscalite comme l'utilisateur s'en sert : le conseil avant l'écran, chaque refus
// avec sa boîte (table Fiscal laissée où elle en était), le fichier de liaison enregistré
// dans le dossier des disquettes à l'octet près, la balance fiscale imprimée en PDF et
// relue, l'enregistrement annulé ou impossible.
#include "EssaiFiscal.h"
#include "support/Captures.h"
#include "support/DossierEssai.h"
#include "support/Outils.h"
#include "support/PiloteModal.h"

#include "base/Reglages.h"
#include "companies/General.h"
#include "fiscal/Fiscalite.h"
#include "reports/DonneesEtats.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "ui/Aide.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QAction>
#include <QCheckBox>
#include <QProcess>
#include <QProgressBar>
#include <QPushButton>
#include <QtTest>

using essai::Cle;
using ui::Reponse;

namespace {

const QString Conseil =
    QStringLiteral("Avant de lancer la création de la balance fiscale, il est indispensable\n"
                   "de consulter l'aide sur la gestion de l'édition de vos liasses fiscales\n"
                   "en liaison avec votre cabinet comptable.\n\n"
                   " Voulez-vous consulter cette aide ?");
const QString ResultatNonNul = QStringLiteral(
    "Le solde des comptes de résultat (120 à 129) n'est pas égal à zéro. Il faut soit "
    "affecter\nle résultat antérieur sur un autre compte, soit annuler par contre-passation "
    "automatique\nle résultat de l'exercice en cours si ce résultat a été déjà été enregistré "
    "avant de créer\nla balance fiscale. (Voir l'Aide du menu Fiscalité)");
const QString Anomalie = QStringLiteral(
    "La création de votre balance fiscale a détecté une anomalie dans votre comptabilité.\n\n"
    "Conseil : Repartez d'une sauvegarde récente de votre comptabilité et recommencez.");

void Creer(ecran::Fiscalite& e) {
    QTest::mouseClick(e.findChild<QPushButton*>("Command3"), Qt::LeftButton);
}

int LignesFiscal() {
    return essai::Compter("SELECT count(*) FROM Fiscal");
}

} // namespace

class TestFiscalite : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;
    QString disquette;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        fiscal_essai::LivresFiscaux(dossier->Chemin());
        session().DateSaisieCourante = QStringLiteral("31/12/2024");
        disquette = dossier->Fichier("cle-usb");
        QVERIFY(QDir().mkpath(disquette));
        QVERIFY(FichierProfil(CheminIni()).Ecrire("Options", "Disquette", disquette));
        // Une ancienne balance : chaque refus la laisse où elle en était.
        essai::Executer("INSERT INTO Fiscal (NumCpt, Intitule) VALUES ('999', 'ancienne')");
        ui::ViderJournalBoites();
        ui::ViderJournalDialogues();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ui::OublierReponsesDialogues();
        ecran::FermerGeneral();
        FermerBase();
        dossier.reset();
    }

    void conseil_questionNonParDefautEtAide() {
        ui::RepondreBoite(Reponse::Non);
        ecran::ConseilFiscal();
        const ui::EntreeJournal b = ui::JournalBoites().last();
        QCOMPARE(b.titre, QStringLiteral("Attention"));
        QCOMPARE(b.texte, Conseil);
        QCOMPARE(b.boutons, ui::Boutons::OuiNon);
        QCOMPARE(b.boutonParDefaut, 2);
        QVERIFY(ui::JournalDialogues().isEmpty());
        ui::RepondreBoite(Reponse::Oui);
        ecran::ConseilFiscal();
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::Aide);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("19"));
        QVERIFY(ui::JournalDialogues().last().accepte);
        ui::FenetreAide()->close();
    }

    // Le menu de l'écran principal : le conseil, puis l'écran, quitté par son bouton.
    void depuisLeMenu_conseilPuisEcran() {
        ecran::MontrerGeneral();
        support::PiloteModal pilote;
        pilote.AttendreBoite(Conseil, "Non").Attendre("Fiscalite", [](QWidget* f) {
            QCOMPARE(f->windowTitle(), QStringLiteral("Création de la balance fiscale"));
            support::Cliquer("Command2")(f);
        });
        pilote.Demarrer();
        ecran::General::Instance()->findChild<QAction*>("SMBalFisc")->trigger();
        QVERIFY2(pilote.AttendreFin(), qPrintable(pilote.Echec()));
    }

    void aide_pageDeLaFiscalite() {
        ecran::Fiscalite e;
        QTest::mouseClick(e.findChild<QPushButton*>("Command1"), Qt::LeftButton);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("19"));
        QVERIFY(ui::JournalDialogues().last().accepte);
        QFile page(ui::PageAide(19));
        QVERIFY(page.open(QIODevice::ReadOnly));
        QVERIFY(QString::fromUtf8(page.readAll()).contains(QStringLiteral("419100")));
        ui::FenetreAide()->close();
    }

    void bilanOuvertureDesequilibre_refus() {
        essai::Executer("UPDATE Constante SET SDE1 = SDE1 + 100 WHERE CleCon = '012024'");
        ui::RepondreBoite(Reponse::OK);
        ecran::Fiscalite e;
        Creer(e);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Votre bilan d'ouverture n'est pas équilibré. Vous ne pouvez pas "
                             "créer la balance fiscale."});
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Information);
        QCOMPARE(LignesFiscal(), 1);
    }

    void avantLaFinDExercice_avertissement() {
        session().DateSaisieCourante = QStringLiteral("15/03/2024");
        ui::RepondreBoite(Reponse::Non);
        ecran::Fiscalite e;
        Creer(e);
        const ui::EntreeJournal b = ui::JournalBoites().last();
        QCOMPARE(b.titre, QStringLiteral("AVERTISSEMENT"));
        QCOMPARE(b.texte, QStringLiteral("Vous n'êtes pas en fin d'exercice.\n\nVoulez-vous "
                                         "continuer ?"));
        QCOMPARE(b.boutons, ui::Boutons::OuiNon);
        QCOMPARE(LignesFiscal(), 1);
        QVERIFY(ui::JournalDialogues().isEmpty());
        // Oui : la création continue jusqu'au fichier (enregistrement refusé ici).
        ui::RepondreBoite(Reponse::Oui);
        ui::RepondreFichier(QString());
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreImprimante(false);
        ui::RepondreBoite(Reponse::OK);
        Creer(e);
        QCOMPARE(LignesFiscal(), 10);
    }

    // Un compte 120 à 129 soldé arrête tout, même quand le reste des livres est en ordre.
    void comptesDeResultatNonSoldes_arret() {
        essai::Ecriture("31/12/2024", "D", {{"120", "C", 70}, {"699", "D", 70}});
        ui::RepondreBoite(Reponse::OK);
        ecran::Fiscalite e;
        e.show();
        Creer(e);
        QCOMPARE(essai::TextesBoites(), QStringList{ResultatNonNul});
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Exclamation);
        QVERIFY(e.findChild<QProgressBar*>("Gauge1")->isHidden());
        QCOMPARE(QApplication::overrideCursor(), nullptr);
        QCOMPARE(LignesFiscal(), 0); // vidée avant le contrôle, et laissée ainsi
        QVERIFY(ui::JournalDialogues().isEmpty());
    }

    void anomalieDansLesLivres_aucunFichier() {
        essai::Executer("UPDATE Compte SET CumD = CumD + 10000 WHERE CleCpt = '012024' AND "
                        "NumCpt = '512'");
        ui::RepondreBoite(Reponse::OK);
        ecran::Fiscalite e;
        Creer(e);
        QCOMPARE(essai::TextesBoites(), QStringList{Anomalie});
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
        QCOMPARE(LignesFiscal(), 10);
        QVERIFY(ui::JournalDialogues().isEmpty());
        QVERIFY(!QFile::exists(dossier->Fichier("balfisc.tmp")));
        QVERIFY(QDir(disquette).isEmpty());
    }

    // Bout à bout : le fichier dans le dossier des disquettes, à l'octet près, puis la
    // balance imprimée en PDF : chaque ligne et les totaux.
    void creation_fichierPuisBalanceImprimee() {
        const QString cible = disquette + "/ESSAIS24.txt";
        const QString pdf = dossier->Fichier("balance-fiscale.pdf");
        ui::RepondreFichier(cible);
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreFichier(pdf);
        ecran::Fiscalite e;
        e.show();
        e.findChild<QCheckBox*>("CBPdf")->setChecked(true);
        Creer(e);
        QCOMPARE(essai::TextesBoites(),
                 QStringList{"Le fichier " + QDir::toNativeSeparators(cible) + " a été créé !"});
        const ui::EntreeDialogue choix = ui::JournalDialogues().first();
        QCOMPARE(choix.dialogue, ui::Dialogue::Enregistrer);
        QCOMPARE(choix.detail, QStringLiteral("ESSAIS24.txt"));
        QCOMPARE(choix.dossier, disquette);
        QCOMPARE(choix.filtre, QStringLiteral("Texte (*.txt)|*.txt"));
        QCOMPARE(essai::LireFichier(cible), fiscal_essai::LiaisonAttendue());
        QVERIFY(!QFile::exists(dossier->Fichier("balfisc.tmp")));
        QVERIFY(e.findChild<QProgressBar*>("Gauge1")->isHidden());

        const QString texte = essai::TextePdf(pdf);
        QVERIFY(texte.contains("BALANCE FISCALE"));
        QVERIFY(texte.contains("Page 1 / 1"));
        QVERIFY(texte.contains(session().NomSocCourante));
        const QList<QStringList> lignes = {
            {"101", "Capital", "-1 000,00", "-1 000,00", "-1 000,00"},
            {"512", "Banque", "1 000,00", "210,00", "136,00", "1 074,00", "800,00"},
            {"707", "Ventes de marchandises", "150,00", "-150,00", "-500,00"},
            {"401", "Fournisseurs Créditeurs", "96,00", "96,00"},
            {"409100", "Fournisseurs Débiteurs", "40,00"},
            {"411", "Clients Débiteurs", "120,00", "120,00", "50,00"},
            {"419100", "Clients Créditeurs", "60,00", "90,00", "-30,00"}};
        for (const QStringList& attendue : lignes) {
            const QRegularExpression debut("^[ \\t]*" + attendue[0] + "\\s",
                                           QRegularExpression::MultilineOption);
            const auto m = debut.match(texte);
            QVERIFY2(m.hasMatch(), qPrintable(attendue[0]));
            const QString ligne = texte.mid(m.capturedStart()).section('\n', 0, 0);
            qsizetype depuis = 0;
            for (const QString& morceau : attendue) {
                const qsizetype ou = ligne.indexOf(morceau, depuis);
                QVERIFY2(ou >= 0, qPrintable(morceau + " dans " + ligne));
                depuis = ou + morceau.size();
            }
        }
        QVERIFY(texte.contains(QRegularExpression("Total des soldes débiteurs\\s+1 210,00")));
        QVERIFY(texte.contains(QRegularExpression("Total des soldes créditeurs\\s+-1 210,00")));
        QVERIFY(!texte.contains("ancienne"));
        // La page, à regarder.
        QCOMPARE(
            QProcess::execute("pdftoppm",
                              {"-r", "60", "-png", "-singlefile", pdf,
                               QDir(support::DossierCaptures()).filePath("etat-balance-fiscale")}),
            0);
    }

    void enregistrementAnnule_pasSauvegardee() {
        ui::RepondreFichier(QString());
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreImprimante(false);
        ui::RepondreBoite(Reponse::OK);
        ecran::Fiscalite e;
        Creer(e);
        QCOMPARE(essai::TextesBoites(), (QStringList{"La balance fiscale n'a pas été sauvegardée.",
                                                     "L'impression est annulée."}));
        QVERIFY(!QFile::exists(dossier->Fichier("balfisc.tmp")));
        QVERIFY(QDir(disquette).isEmpty());
    }

    // Dossier impossible : la boîte, aucun fichier partiel, l'état s'imprime quand même.
    void dossierImpossible_boiteEtRienDePartiel() {
        const QString cible = dossier->Fichier("retiree/ESSAIS24.txt");
        ui::RepondreFichier(cible);
        ui::RepondreBoite(Reponse::OK);
        ui::RepondreImprimante(false);
        ui::RepondreBoite(Reponse::OK);
        ecran::Fiscalite e;
        Creer(e);
        QCOMPARE(essai::TextesBoites(),
                 (QStringList{"Impossible de créer le fichier " + QDir::toNativeSeparators(cible),
                              "L'impression est annulée."}));
        QVERIFY(!QFile::exists(cible));
        QVERIFY(!QFile::exists(dossier->Fichier("balfisc.tmp")));
    }

    void capture_ecran() {
        ecran::Fiscalite e;
        e.show();
        QVERIFY(QTest::qWaitForWindowExposed(&e));
        const QImage image = e.grab().toImage();
        QVERIFY(support::ImageDessinee(image));
        QVERIFY(image.save(QDir(support::DossierCaptures()).filePath("fiscalite.png")));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestFiscalite test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fiscalite.moc"
