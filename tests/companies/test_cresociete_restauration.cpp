// Restauration d'une base entière depuis la création de société : les confirmations, le
// choix du fichier, l'échec qui garde l'ancienne base, la réussite qui arrête Maroval.

#include "Essai.h"

#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "companies/CreSociete.h"
#include "companies/Restauration.h"
#include "session/FichierProfil.h"
#include "ui/Application.h"
#include "ui/Fin.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace support;

namespace {

const QString kPremiere = QStringLiteral(
    "Si vous confirmez le clic sur ce bouton, vous allez restaurer\n"
    "TOUTES LES COMPTABILITES PRESENTES DANS VOTRE SAUVEGARDE.\n"
    "et donc EFFACER LE CONTENU ACTUEL DE VOTRE BASE DE DONNEES MAROVAL.\n"
    "Cette fonctionnalité est à utiliser par exemple, suite à une panne grave d'ordinateur,\n"
    "où si vous voulez transférer vos comptabilités sur une nouvelle machine.\n"
    "Est-ce vraiment ce que vous voulez faire ?");
const QString kDeuxieme = QStringLiteral(
    "Maroval va vous demander de désigner un fichier de sauvegarde.\nVoulez-vous continuer ?");
const QString kArchive = QStringLiteral("/media/cle/maroval31-12-2024-09h05.sav");
const QString kConfirmation =
    QStringLiteral("Etes-vous certain(e) de vouloir restaurer le fichier ") + kArchive +
    QStringLiteral(" ?");

} // namespace

class TestRestauration : public QObject {
    Q_OBJECT
    std::unique_ptr<DossierEssai> dossier;
    std::unique_ptr<QTemporaryDir> sauvegarde;

    std::unique_ptr<ecran::CreSociete> Montrer() {
        session().ModeCreSociete = 1;
        auto e = std::make_unique<ecran::CreSociete>();
        e->show();
        return e;
    }

    // Une base sauvegardée qui ne contient que la société "Restaurée".
    void PreparerSauvegarde() {
        const QString actuel = session().DossierDonnees;
        FermerBase();
        OuvrirBase(sauvegarde->path());
        essai::Societe(QStringLiteral("Restaurée"));
        FermerBase();
        OuvrirBase(actuel);
    }

    // Toutes les questions acceptées, l'archive choisie, la boîte de fin acquittée.
    void RestaurerJusquAuBout(QWidget* e, const QString& archive) {
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreFichier(archive);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::OK);
        CliquerBouton(e, "Command5");
    }

    // Une vraie archive de la base sauvegardée, et un fichier qui n'est pas une archive.
    QString ArchiveSaine() {
        const QString archive = QDir(sauvegarde->path()).filePath("maroval.sav");
        if (!QFile::exists(archive)) Zipper(sauvegarde->path(), "maroval.mdb", archive);
        return archive;
    }
    QString ArchiveAbimee() {
        const QString archive = QDir(sauvegarde->path()).filePath("abimee.sav");
        QFile f(archive);
        if (f.open(QIODevice::WriteOnly)) f.write("ceci n'est pas une archive");
        return archive;
    }
    int SocietesActuelles() {
        return essai::Compter("SELECT count(*) FROM Societe WHERE Nom='Actuelle'");
    }

private slots:
    void init() {
        dossier = std::make_unique<DossierEssai>();
        essai::OuvrirEssai(*dossier);
        essai::Societe(QStringLiteral("Actuelle"));
        sauvegarde = std::make_unique<QTemporaryDir>();
        PreparerSauvegarde();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void chaqueNon_arreteSansRienToucher() {
        auto e = Montrer();
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(e.get(), "Command5");
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(e.get(), "Command5");
        QCOMPARE(essai::TextesBoites(), QStringList({kPremiere, kPremiere, kDeuxieme}));
        QVERIFY(ui::JournalDialogues().isEmpty());
        QVERIFY(!ui::FinDemandee());
        QCOMPARE(SocietesActuelles(), 1);
    }

    void fichierNonChoisi_ouConfirmationRefusee_arrete() {
        auto e = Montrer();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreFichier(QString());
        CliquerBouton(e.get(), "Command5");
        QCOMPARE(ui::JournalDialogues().size(), 1);
        QCOMPARE(ui::JournalDialogues()[0].dialogue, ui::Dialogue::Ouvrir);
        QCOMPARE(ui::JournalDialogues()[0].filtre,
                 QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*"));
        ui::ViderJournalBoites();
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreBoite(ui::Reponse::Oui);
        ui::RepondreFichier(kArchive);
        ui::RepondreBoite(ui::Reponse::Non);
        CliquerBouton(e.get(), "Command5");
        QCOMPARE(essai::TextesBoites(), QStringList({kPremiere, kDeuxieme, kConfirmation}));
        QCOMPARE(ui::JournalBoites()[2].titre, QStringLiteral("Confirmation"));
        QVERIFY(BaseOuverte());
        QCOMPARE(SocietesActuelles(), 1);
    }

    void extractionEchouee_messageEtAncienneBaseRouverte() {
        auto e = Montrer();
        RestaurerJusquAuBout(e.get(), ArchiveAbimee());
        QCOMPARE(ui::JournalBoites().last().texte,
                 QStringLiteral("La restauration a échoué. La base de données est introuvable "
                                "dans votre sauvegarde\nou votre fichier est endommagé."));
        QCOMPARE(ui::JournalBoites().last().icone, ui::Icone::Critique);
        QVERIFY(!ui::FinDemandee());
        QVERIFY(BaseOuverte());
        QCOMPARE(SocietesActuelles(), 1);
    }

    void restaurationReussie_marqueurAZeroPuisFinDuProgramme() {
        FichierProfil ini(CheminIni());
        QVERIFY(ini.Ecrire("Securite", "Erreur", "2"));
        QVERIFY(ini.Ecrire("Options", "SymbEu", "€"));
        auto e = Montrer();
        RestaurerJusquAuBout(e.get(), ArchiveSaine());
        QVERIFY(ui::FinDemandee());
        QCOMPARE(ui::JournalBoites().last().texte, TexteRestaurationTerminee());
        QCOMPARE(ini.Lire("Securite", "Erreur"), QStringLiteral("0"));
        // La configuration en place reste celle qui compte.
        QCOMPARE(ini.Lire("Options", "SymbEu"), QStringLiteral("€"));
        QVERIFY(!BaseOuverte());
        OuvrirBase(dossier->Chemin());
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe WHERE Nom='Restaurée'"), 1);
        QCOMPARE(essai::Compter("SELECT count(*) FROM Societe WHERE Nom='Actuelle'"), 0);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestRestauration t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_cresociete_restauration.moc"
