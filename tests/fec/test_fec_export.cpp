// Le fichier des écritures comptables d'une petite société connue, écrit ici à la main et
// comparé à l'octet : en-tête, à-nouveaux d'abord, tiers sur leur collectif avec les
// colonnes auxiliaires, un libellé avec tabulation, barre, guillemets et accents, une
// contre-passation ; le SIREN et sa clé ; l'écran d'export ; la table du SIREN ajoutée à
// une base d'une version précédente.
#include "support/DossierEssai.h"
#include "support/LivresEssai.h"

#include "chart/Ouverture.h"
#include "fec/EcritureFec.h"
#include "fec/ExportFEC.h"
#include "fec/LectureFec.h"
#include "session/Session.h"
#include "store/ControleBase.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using essai::Cle;
using essai::Euros;
using ui::Reponse;

namespace {

// Les champs d'une ligne du fichier, séparés ici par « ; » pour la lisibilité, remis en
// tabulations.
QByteArray L(const char* champs) {
    return QByteArray(champs).replace(';', '\t');
}

} // namespace

class TestFecExport : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        essai::NouvelleSession(dossier->Chemin());
        essai::OuvrirLivres(dossier->Chemin());
        EnregistrerMontantOuverture("512", Montant(), Euros(1000), QString());
        EnregistrerMontantOuverture("411001", Montant(), Euros(300), "410");
        EnregistrerMontantOuverture("101", Montant(), Euros(1300), QString());
        essai::Ecriture("05/02/2024", "V",
                        {{"411001", "D", 120}, {"707", "C", 100}, {"44571", "C", 20}});
        essai::Executer(
            "UPDATE Ecriture SET LibEcr = 'Facture' || char(9) || 'Durand | \"urgent\" été' "
            "WHERE CleCpt = '012024' AND NumEcr = 1");
        essai::Ecriture("12/03/2024", "A",
                        {{"607", "D", 80}, {"44566", "D", 16}, {"401001", "C", 96}});
        essai::Ecriture("20/03/2024", "T", {{"512", "D", 120}, {"411001", "C", 120}});
        // La contre-passation du règlement.
        essai::Ecriture("25/03/2024", "T", {{"411001", "D", 120}, {"512", "C", 120}});
        ui::ViderJournalBoites();
    }
    void cleanup() {
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        ui::OublierReponsesDialogues();
        FermerBase();
        dossier.reset();
    }

    void fichier_octetParOctet() {
        fec::Totaux t;
        QString erreur;
        const QByteArray fichier = fec::FichierFec(Cle, &t, &erreur);
        QCOMPARE(erreur, QString());
        const QList<QByteArray> lignes = {
            L("JournalCode;JournalLib;EcritureNum;EcritureDate;CompteNum;CompteLib;CompAuxNum;"
              "CompAuxLib;PieceRef;PieceDate;EcritureLib;Debit;Credit;EcritureLet;DateLet;"
              "ValidDate;Montantdevise;Idevise"),
            // A-nouveaux : une ligne par compte ; le client sur le collectif 410.
            L("AN;A nouveaux;1;20240101;101;Capital;;;AN;20240101;A "
              "nouveaux;0,00;1300,00;;;20240101;;"),
            L("AN;A nouveaux;1;20240101;410;Clients collectif;411001;Client Durand;AN;20240101;A "
              "nouveaux;300,00;0,00;;;20240101;;"),
            L("AN;A nouveaux;1;20240101;512;Banque;;;AN;20240101;A "
              "nouveaux;1000,00;0,00;;;20240101;;"),
            // La vente : la tabulation du libellé devenue un blanc, le reste tel quel.
            L("V;Journal des Ventes;2;20240205;410;Clients collectif;411001;Client "
              "Durand;1;20240205;Facture Durand | \"urgent\" été;120,00;0,00;;;20240205;;"),
            L("V;Journal des Ventes;2;20240205;707;Ventes de marchandises;;;1;20240205;Essai "
              "707;0,00;100,00;;;20240205;;"),
            L("V;Journal des Ventes;2;20240205;44571;TVA collectée;;;1;20240205;Essai "
              "44571;0,00;20,00;;;20240205;;"),
            // L'achat : le fournisseur sur le collectif 400.
            L("A;Journal des Achats;3;20240312;607;Achats de marchandises;;;4;20240312;Essai "
              "607;80,00;0,00;;;20240312;;"),
            L("A;Journal des Achats;3;20240312;44566;TVA déductible;;;4;20240312;Essai "
              "44566;16,00;0,00;;;20240312;;"),
            L("A;Journal des Achats;3;20240312;400;Fournisseurs collectif;401001;Fournisseur "
              "Martin;4;20240312;Essai 401001;0,00;96,00;;;20240312;;"),
            // Le règlement, puis sa contre-passation.
            L("T;Journal de Trésorerie;4;20240320;512;Banque;;;7;20240320;Essai "
              "512;120,00;0,00;;;20240320;;"),
            L("T;Journal de Trésorerie;4;20240320;410;Clients collectif;411001;Client "
              "Durand;7;20240320;Essai 411001;0,00;120,00;;;20240320;;"),
            L("T;Journal de Trésorerie;5;20240325;410;Clients collectif;411001;Client "
              "Durand;9;20240325;Essai 411001;120,00;0,00;;;20240325;;"),
            L("T;Journal de Trésorerie;5;20240325;512;Banque;;;9;20240325;Essai "
              "512;0,00;120,00;;;20240325;;")};
        QByteArray attendu;
        for (const QByteArray& l : lignes)
            attendu += (attendu.isEmpty() ? QByteArray() : QByteArray("\r\n")) + l;
        QCOMPARE(fichier, attendu);
        // Dix-huit champs par ligne, aucune fin de ligne après la dernière, pas de BOM.
        for (const QByteArray& l : fichier.split('\n'))
            QCOMPARE(l.count('\t'), 17);
        QVERIFY(!fichier.endsWith('\n'));
        QVERIFY(!fichier.startsWith("\xEF\xBB\xBF"));
        QCOMPARE(t.ecritures, 5);
        QCOMPARE(t.lignes, 13);
        QCOMPARE(t.debit, Euros(1756));
        QCOMPARE(t.credit, Euros(1756));
        // Le lecteur des fichiers venus d'ailleurs le relit sans un refus.
        const fec::FichierLu lu = fec::LireFec(fichier);
        QCOMPARE(lu.refus, QStringList());
        QCOMPARE(lu.ecritures.size(), std::size_t(5));
        QCOMPARE(lu.lignes, 13);
        QCOMPARE(lu.ecritures[1].lignes[0].ecritureLib,
                 QStringLiteral("Facture Durand | \"urgent\" été"));
    }

    void aNouveauxDesequilibres_refus() {
        essai::Executer(
            "UPDATE Compte SET Sde = Sde + 10000 WHERE CleCpt = '012024' AND NumCpt = '512'");
        QString erreur;
        QCOMPARE(fec::FichierFec(Cle, nullptr, &erreur), QByteArray());
        QCOMPARE(erreur, QStringLiteral("Le bilan d'ouverture n'est pas équilibré (débits 1301,00, "
                                        "crédits 1300,00) : le fichier ne serait pas accepté."));
    }

    void siren_cleDeLuhnEtNom() {
        QVERIFY(fec::SirenValide("732829320"));
        QVERIFY(fec::SirenValide("552100554"));
        QVERIFY(!fec::SirenValide("732829321"));
        QVERIFY(!fec::SirenValide("73282932"));
        QVERIFY(!fec::SirenValide("73282932A"));
        QCOMPARE(fec::NomFichier("732829320", "20241231"),
                 QStringLiteral("732829320FEC20241231.txt"));
    }

    void ecran_sirenPuisFichier() {
        ecran::ExportFEC e;
        QCOMPARE(e.windowTitle(), QStringLiteral("Fichier des écritures comptables (FEC)"));
        auto* siren = e.findChild<QLineEdit*>("TextSiren");
        auto* exporter = e.findChild<QPushButton*>("Command1");
        siren->setText("12345");
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(exporter, Qt::LeftButton);
        QCOMPARE(essai::TextesBoites().last(),
                 QStringLiteral("Le numéro SIREN doit compter exactement 9 chiffres."));
        siren->setText("732829321");
        ui::RepondreBoite(Reponse::OK);
        QTest::mouseClick(exporter, Qt::LeftButton);
        QVERIFY(essai::TextesBoites().last().startsWith("Ce numéro SIREN n'est pas valide"));
        siren->setText("732 829 320");
        const QString chemin = dossier->Fichier("732829320FEC20241231.txt");
        ui::RepondreFichier(chemin);
        ui::RepondreBoite(Reponse::Non);
        QTest::mouseClick(exporter, Qt::LeftButton);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("732829320FEC20241231.txt"));
        QCOMPARE(
            essai::TextesBoites().last(),
            "Le fichier " + chemin + " a été créé : 5 écritures, 13 lignes, total des débits " +
                FormaterMontant(Euros(1756), session().FormatMontant) + ", total des crédits " +
                FormaterMontant(Euros(1756), session().FormatMontant) +
                ".\n\nVoulez-vous ouvrir le dossier qui le contient ?");
        QCOMPARE(essai::LireFichier(chemin), fec::FichierFec(Cle, nullptr, nullptr));
        // Le SIREN est retenu pour la société.
        ecran::ExportFEC encore;
        QCOMPARE(encore.findChild<QLineEdit*>("TextSiren")->text(), QStringLiteral("732829320"));
    }

    // Une base d'avant la table du SIREN : acceptée par le contrôle, complétée à l'ouverture.
    void baseAncienne_tableAjouteeALOuverture() {
        essai::Executer("DROP TABLE SirenSociete");
        FermerBase();
        const QString chemin = dossier->Fichier("maroval.mdb");
        QCOMPARE(ControlerBase(chemin).etat, EtatBase::Saine);
        OuvrirBase(dossier->Chemin());
        fec::EnregistrerSiren(1, "732829320");
        QCOMPARE(fec::LireSiren(1), QStringLiteral("732829320"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestFecExport test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_fec_export.moc"
