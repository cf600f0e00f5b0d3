// Aller-retour sur des livres tenus par le moteur d'écritures : après la restauration et
// le redémarrage, la base est celle de la sauvegarde et la vérification des livres passe.
#include "BancSauvegarde.h"
#include "support/LivresEssai.h"

#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "posting/Filtre.h"
#include "posting/PasserEcriture.h"
#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Fin.h"

#include <QtTest>

using namespace banc;

namespace {

using essai::Cle;

void OuvrirExerciceEssai() {
    essai::SessionExercice(QStringLiteral("Livres & Cie"), QStringLiteral("15/03/2024"));
    essai::CreerExerciceEssai(QStringLiteral("20240101"), QStringLiteral("20240101"));
    for (const char* n : {"400", "410", "401001", "411001", "512", "607", "707"})
        AssurerCompte(Cle, QString::fromLatin1(n), QStringLiteral("Compte ") + n, {}, {});
}

// Une transaction de deux lignes posée dans wSaisie puis passée par le moteur.
void Passer(const QString& debit, const QString& credit, std::int64_t centimes,
            const QString& journal) {
    essai::ViderSaisie();
    essai::Saisir(debit, QStringLiteral("D"), Montant::depuisCentimes(centimes), journal);
    essai::Saisir(credit, QStringLiteral("C"), Montant::depuisCentimes(centimes), journal);
    essai::Passer();
}

} // namespace

class TestSauvegardeLivres : public QObject {
    Q_OBJECT
private slots:
    void allerRetourDeLivresPassesGardeLaVerificationVraie() {
        Banc banc;
        OuvrirExerciceEssai();
        Passer(QStringLiteral("607"), QStringLiteral("401001"), 12050, QStringLiteral("A"));
        Passer(QStringLiteral("411001"), QStringLiteral("707"), 30000, QStringLiteral("V"));
        Passer(QStringLiteral("512"), QStringLiteral("411001"), 30000, QStringLiteral("T"));
        QCOMPARE(NombreEcritures(), 6);
        QVERIFY(Verification());
        const QStringList avant = VidageComplet();

        const QString archive = banc.Archives() + QStringLiteral("/livres.sav");
        {
            ecran::Backup ecran;
            ui::RepondreFichier(archive);
            ui::RepondreBoite(ui::Reponse::OK);
            ecran.Command2_Click();
            QVERIFY(BaseOuverte());
        }
        Passer(QStringLiteral("607"), QStringLiteral("512"), 999, QStringLiteral("T"));
        QVERIFY(VidageComplet() != avant);

        ui::RepondreBoite(ui::Reponse::OK);
        QVERIFY_THROWS_EXCEPTION(ui::FinProgramme, RestaurerArchive(archive));
        OuvrirBase(banc.Chemin());
        QCOMPARE(VidageComplet(), avant);
        QVERIFY(Verification());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSauvegardeLivres test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_sauvegarde_livres.moc"
