// Arrêt brutal pendant la copie de la totalité d'un plan standard : la copie est validée
// d'un seul tenant, donc un arrêt à n'importe quelle écriture ne laisse aucun compte ni
// budget, et la copie refaite ensuite prend tout le plan.

#include "support/ExerciceEssai.h"
#include "support/ProcessusFils.h"

#include "chart/Plan2.h"
#include "posting/Verification.h"
#include "ui/Application.h"
#include "ui/Grille.h"

#include <QListWidget>
#include <QSettings>
#include <csignal>
#include <memory>
#include <sqlite3.h>

using namespace essai;

namespace {

// Rang du plan le plus long dans la liste (le troisième des plans livrés).
constexpr int RangPlan = 2;

int ecrituresVues = 0;
int arretApres = 0;

void CompterEcriture(void*, int, const char*, const char* table, sqlite3_int64) {
    const QByteArray t(table);
    // Arrêt sans aucun nettoyage, comme une coupure de courant.
    if ((t == "Compte" || t == "Budget") && ++ecrituresVues == arretApres) std::raise(SIGKILL);
}

// Copie de la totalité du plan par l'écran, confirmée.
void CopierToutLePlan() {
    ecran::Plan2 plan;
    plan.show();
    plan.findChild<QListWidget*>(QStringLiteral("List1"))->setCurrentRow(RangPlan);
    ui::RepondreBoite(ui::Reponse::Oui);
    plan.Command1_Click();
}

int ComptesDuPlan() {
    return Compter("SELECT COUNT(*) FROM PlanType WHERE NumPlan='0003'");
}

} // namespace

class TestPlan2Arret : public QObject {
    Q_OBJECT

private slots:
    void enfantCopieInterrompue() {
        if (!support::EstProcessusFils()) QSKIP("exécuté seulement comme processus fils");
        const QString dossier = qEnvironmentVariable("MAROVAL_ESSAI_DOSSIER");
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, dossier);
        ui::FixerModeEssai(true);
        OuvrirSession(dossier);
        arretApres = qEnvironmentVariableIntValue("MAROVAL_ESSAI_ARRET");
        sqlite3_update_hook(Base().getHandle(), CompterEcriture, nullptr);
        CopierToutLePlan();
        QFAIL("la copie aurait dû être interrompue");
    }

    void arret_aucunComptePuisRepriseComplete_data() {
        QTest::addColumn<int>("arret");
        QTest::newRow("première écriture") << 1;
        QTest::newRow("milieu du plan") << 120;
        QTest::newRow("dernière écriture") << -1;
    }
    void arret_aucunComptePuisRepriseComplete() {
        QFETCH(int, arret);
        support::DossierEssai dossier;
        OuvrirExercice(dossier);
        const int comptes = ComptesDuPlan();
        const int budgets = Compter("SELECT COUNT(*) FROM PlanType WHERE NumPlan='0003' AND "
                                    "NumCpt>='600' AND NumCpt<>'699' AND NumCpt<>'799'");
        if (arret < 0) arret = comptes + budgets;
        FermerBase();
        qputenv("MAROVAL_ESSAI_DOSSIER", dossier.Chemin().toUtf8());
        qputenv("MAROVAL_ESSAI_ARRET", QByteArray::number(arret));
        const support::ResultatFils fils = support::LancerFonctionEnFils("enfantCopieInterrompue");
        QVERIFY2(fils.termine && fils.plante, qPrintable(fils.sortie + fils.erreurs));

        OuvrirSession(dossier.Chemin());
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), 0);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), 0);
        CopierToutLePlan();
        QCOMPARE(Compter("SELECT COUNT(*) FROM Compte"), comptes);
        QCOMPARE(Compter("SELECT COUNT(*) FROM Budget"), budgets);
        QVERIFY(Verification());
        FermerBase();
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPlan2Arret t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_plan2_arret.moc"
