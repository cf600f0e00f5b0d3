// Export vers un tableur, routine commune : séparateur de liste, formes des nombres,
// octets du fichier (marque d'ordre, CR LF, aucune protection), dialogue d'enregistrement
// et question de fin.

#include "support/DossierEssai.h"

#include "consultation/Export.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QLocale>
#include <QtTest>
#include <memory>

using ui::Reponse;

namespace {

QByteArray Lire(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<absent>");
}

} // namespace

class TestExport : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
        FixerApplicationAssociee(true);
    }
    void cleanup() {
        FixerApplicationAssociee(std::nullopt);
        QLocale::setDefault(QLocale::c());
        QCOMPARE(ui::ReponsesEnAttente(), 0);
        dossier.reset();
    }

    void separateur_pointVirguleQuandLaVirguleEstDecimale() {
        QCOMPARE(SeparateurListe(), QStringLiteral(";"));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(SeparateurListe(), QStringLiteral(","));
    }

    void nombreSimple_pointSansGroupesBlancDevantLesPositifs() {
        QCOMPARE(NombreSimple(Montant::depuisCentimes(1250)), QStringLiteral(" 12.5"));
        QCOMPARE(NombreSimple(Montant::depuisCentimes(-325)), QStringLiteral("-3.25"));
        QCOMPARE(NombreSimple(Montant()), QStringLiteral(" 0"));
        QCOMPARE(NombreSimple(Montant::depuisUnites(1234567)), QStringLiteral(" 1234567"));
        QCOMPARE(NombreSimple(Montant::depuisDixMilliemes(12345)), QStringLiteral(" 1.2345"));
        QCOMPARE(NombreSimple(15.0), QStringLiteral(" 15"));
        QCOMPARE(NombreSimple(-2.0), QStringLiteral("-2"));
    }

    void nombreLocal_signeDecimalDuSystemeSansBlanc() {
        QCOMPARE(NombreLocal(Montant::depuisCentimes(1250)), QStringLiteral("12,5"));
        QCOMPARE(NombreLocal(Montant::depuisCentimes(-123456)), QStringLiteral("-1234,56"));
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        QCOMPARE(NombreLocal(Montant::depuisCentimes(1250)), QStringLiteral("12.5"));
        QCOMPARE(NombreLocal(Montant()), QStringLiteral("0"));
    }

    void fichier_marqueOrdreFinsCRLFEtAucuneProtection() {
        const QString chemin = dossier->Fichier("essai.csv");
        {
            FichierCsv f(chemin, QStringLiteral(";"));
            f.EcrireTitres({QStringLiteral("Numéro"), QStringLiteral("Libellé")});
            f.EcrireLigne({QStringLiteral("411"), QStringLiteral("Dupont; \"fils\"")}, true);
            f.EcrireLigne({QStringLiteral("a"), QString(), QStringLiteral("-3,25")}, false);
            f.Fermer();
        }
        QCOMPARE(Lire(chemin), QByteArray("\xEF\xBB\xBF\"Num\xC3\xA9ro\";\"Libell\xC3\xA9\"\r\n"
                                          "\"411\";\"Dupont; \"fils\"\"\r\n"
                                          "a;;-3,25\r\n"));
    }

    void fichier_videNeGardeQueLaMarque() {
        const QString chemin = dossier->Fichier("vide.csv");
        FichierCsv(chemin, QStringLiteral(",")).Fermer();
        QCOMPARE(Lire(chemin), QByteArray("\xEF\xBB\xBF"));
    }

    void choixFichier_annulationRendUnCheminVideSansMessage() {
        ui::RepondreFichier(QString());
        QCOMPARE(ChoisirFichierExport(QStringLiteral("401-Dupont.csv")), QString());
        QVERIFY(ui::JournalBoites().isEmpty());
        const ui::EntreeDialogue& d = ui::JournalDialogues().last();
        QCOMPARE(d.dialogue, ui::Dialogue::Enregistrer);
        QCOMPARE(d.detail, QStringLiteral("401-Dupont.csv"));
        QCOMPARE(d.filtre, QStringLiteral("CSV (*.csv)|*.csv"));
        QVERIFY(!d.accepte);
    }

    void choixFichier_doubleBarreObliqueInverseRameneeAUne() {
        ui::RepondreFichier(dossier->Fichier("x.csv"));
        QCOMPARE(ChoisirFichierExport(QStringLiteral("a\\\\b.csv")), dossier->Fichier("x.csv"));
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("a\\b.csv"));
        // Un "/" du libellé ne fait pas un chemin de dossiers.
        ui::RepondreFichier(QString());
        ChoisirFichierExport(QStringLiteral("607-Achats 5/5.csv"));
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("607-Achats 5-5.csv"));
    }

    void fin_questionExportTermineEtOuvertureSurOui() {
        ui::RepondreBoite(Reponse::Oui);
        TerminerExport(QStringLiteral("/tmp/a.csv"), QStringLiteral("Phrase"),
                       QStringLiteral("Question ?"));
        QCOMPARE(ui::JournalBoites().size(), 1);
        const ui::EntreeJournal& b = ui::JournalBoites().first();
        QCOMPARE(b.titre, QStringLiteral("Export terminé"));
        QCOMPARE(b.texte, QStringLiteral("Phrase\r\n\r\nQuestion ?"));
        QCOMPARE(b.boutons, ui::Boutons::OuiNonAnnuler);
        QCOMPARE(ui::JournalDialogues().last().dialogue, ui::Dialogue::OuvrirFichier);
        QCOMPARE(ui::JournalDialogues().last().detail, QStringLiteral("/tmp/a.csv"));
    }

    void fin_nonOuAnnulerNOuvrentRien() {
        ui::RepondreBoite(Reponse::Non);
        ui::RepondreBoite(Reponse::Annuler);
        TerminerExport(QStringLiteral("/tmp/a.csv"), QStringLiteral("P"), QStringLiteral("Q"));
        TerminerExport(QStringLiteral("/tmp/a.csv"), QStringLiteral("P"), QStringLiteral("Q"));
        QVERIFY(ui::JournalDialogues().isEmpty());
    }

    void fin_sansProgrammeAssocieLaPhraseSeuleEnInformation() {
        FixerApplicationAssociee(false);
        ui::RepondreBoite(Reponse::OK);
        TerminerExport(QStringLiteral("/tmp/a.csv"), QStringLiteral("Phrase"),
                       QStringLiteral("Question ?"));
        const ui::EntreeJournal& b = ui::JournalBoites().first();
        QCOMPARE(b.texte, QStringLiteral("Phrase"));
        QCOMPARE(b.icone, ui::Icone::Information);
        QCOMPARE(b.boutons, ui::Boutons::OK);
        QVERIFY(ui::JournalDialogues().isEmpty());
    }

    void ecrasement_questionSeulementSiLeFichierExiste() {
        const QString chemin = dossier->Fichier("Bilan.csv");
        QVERIFY(AccepterEcrasement(chemin));
        QVERIFY(ui::JournalBoites().isEmpty());
        FichierCsv(chemin, QStringLiteral(";")).Fermer();
        ui::RepondreBoite(Reponse::Non);
        QVERIFY(!AccepterEcrasement(chemin));
        QCOMPARE(ui::JournalBoites().first().titre, QStringLiteral("Confirmation"));
        QCOMPARE(ui::JournalBoites().first().texte,
                 QStringLiteral("Le fichier %1 existe déjà ! \n\nSouhaitez-vous l'écraser par "
                                "le nouveau ?")
                     .arg(chemin));
        ui::RepondreBoite(Reponse::Oui);
        QVERIFY(AccepterEcrasement(chemin));
    }

    void ecritureImpossible_estLErreurDExecution() {
        QVERIFY_THROWS_EXCEPTION(ErreurExecution,
                                 FichierCsv(dossier->Fichier("absent/x.csv"), ";"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestExport t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_export.moc"
