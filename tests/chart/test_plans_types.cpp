// Plans comptables types livrés (PlanType) et leur liste dans le maroval.ini par défaut :
// chaque plan se copie sans compte refusé et suffit à chaque case de chaque menu de saisie.

#include "support/DonneesReference.h"

#include "session/FichierProfil.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <memory>

namespace {

using namespace essai;

QByteArray IniParDefaut() {
    QFile f(QStringLiteral(":/data/maroval.ini"));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

QString Ini(const char* section, const QString& cle) {
    return FichierProfil::LireDansTexte(IniParDefaut(), QString::fromLatin1(section), cle,
                                        QStringLiteral("<absent>"));
}

QList<QPair<QString, QString>> ComptesDuPlan(const QString& plan) {
    QList<QPair<QString, QString>> l;
    SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt FROM PlanType WHERE NumPlan = ? "
                                "ORDER BY NumCpt");
    q.bind(1, plan.toStdString());
    while (q.executeStep())
        l << qMakePair(Colonne(q, 0), Colonne(q, 1));
    return l;
}

} // namespace

class TestPlansTypes : public QObject {
    Q_OBJECT
    std::unique_ptr<BaseEssai> base;

private slots:
    void init() { base = std::make_unique<BaseEssai>(); }
    void cleanup() { base.reset(); }

    void ini_valeursParDefaut() {
        QVERIFY(!IniParDefaut().isEmpty());
        QCOMPARE(Ini("Securite", "Erreur"), QStringLiteral("0"));
        QCOMPARE(Ini("Options", "SymbEu"), QStringLiteral("E"));
        QCOMPARE(Ini("Options", "NbDecimales"), QStringLiteral("2"));
        QCOMPARE(Ini("Controle", "Debug"), QStringLiteral("0"));
    }

    void ini_listeDesPlansTypesEgaleALaTable() {
        const QStringList plans = Plans();
        QVERIFY2(plans.size() >= 4, "au moins quatre plans types");
        QCOMPARE(Ini("Plans Types", "NbPlan").toInt(), plans.size());
        QStringList listes, noms;
        for (int i = 1; i <= plans.size(); ++i) {
            const QString num = Ini("Plans Types", QStringLiteral("Plan%1").arg(i));
            const QString nom = Ini("Plans Types", QStringLiteral("Libel%1").arg(i));
            QVERIFY2(QRegularExpression("^\\d{4}$").match(num).hasMatch(), qPrintable(num));
            QVERIFY2(!nom.isEmpty() && nom != "<absent>", qPrintable(num));
            listes << num;
            noms << nom;
        }
        QCOMPARE(listes, plans);
        QCOMPARE(QSet<QString>(noms.begin(), noms.end()).size(), noms.size());
    }

    void planType_tailleNumerosEtLibelles() {
        for (const QString& plan : Plans()) {
            const auto comptes = ComptesDuPlan(plan);
            QVERIFY2(comptes.size() >= 80 && comptes.size() <= 250,
                     qPrintable(QStringLiteral("%1 : %2 comptes").arg(plan).arg(comptes.size())));
            QSet<QString> vus;
            for (const auto& [numero, libelle] : comptes) {
                const QString quoi = plan + " " + numero;
                QVERIFY2(QRegularExpression("^[1-7]\\d{2,7}$").match(numero).hasMatch(),
                         qPrintable(quoi));
                QVERIFY2(!vus.contains(numero), qPrintable(quoi));
                vus.insert(numero);
                QVERIFY2(!libelle.isEmpty(), qPrintable(quoi));
            }
        }
    }

    // Ni numéro refusé, ni plage où il faudrait choisir actif ou passif : la copie du plan
    // entier ne demande rien.
    void planType_comptesDansUnePlageDuPlanOfficiel() {
        SQLite::Statement q(Base(), "SELECT NumPlan, NumCpt FROM PlanType");
        int n = 0;
        while (q.executeStep()) {
            const QString numero = Colonne(q, 1);
            const table::Filtre f = FiltreDuCompte(numero);
            QVERIFY2(QSet<QString>({"E1", "R1", "E2", "R2"}).contains(f.ERCPT),
                     qPrintable(Colonne(q, 0) + " " + numero + " " + f.ERCPT));
            ++n;
        }
        QVERIFY(n > 0);
    }

    // 400, 410, 699 et 799 sont faits en quittant le plan, avec leurs libellés fixes.
    void planType_sansComptesFaitsEnQuittantLePlan() {
        SQLite::Statement q(Base(), "SELECT count(*) FROM PlanType WHERE NumCpt IN "
                                    "('400', '410', '699', '799')");
        q.executeStep();
        QCOMPARE(q.getColumn(0).getInt(), 0);
    }

    void planType_chaqueCaseDeMenuProposeUnCompte() {
        const QList<table::Tableau> cases = LignesTableau();
        QVERIFY(cases.size() > 40);
        for (const QString& plan : Plans()) {
            QVERIFY(CopierPlan(plan) >= 80);
            for (const table::Tableau& t : cases) {
                const QStringList proposes = ComptesProposes(t);
                QVERIFY2(!proposes.isEmpty(),
                         qPrintable(QStringLiteral("plan %1, case %2 (%3) : aucun compte")
                                        .arg(plan, t.tMenuLigne, t.tMessage)));
                for (const char* fixe : {"400", "410"})
                    QVERIFY2(!proposes.contains(QString::fromLatin1(fixe)),
                             qPrintable(plan + " " + t.tMenuLigne));
            }
        }
    }

    // Chaque compte d'un plan est atteint par une case qui nomme son code ; seuls les
    // avances et acomptes (409, 419, 425) passent par les opérations libres.
    void planType_comptesAtteintsParLesMenus() {
        QSet<int> nommes;
        for (const table::Tableau& t : LignesTableau())
            if (!ToutLePlan(t))
                for (int c : Classes(t))
                    nommes.insert(c);
        const QSet<int> parOperationLibre = {185, 190, 205};
        SQLite::Statement q(Base(), "SELECT NumPlan, NumCpt FROM PlanType");
        while (q.executeStep()) {
            const int menu = FiltreDuCompte(Colonne(q, 1)).Menu.toInt();
            QVERIFY2(nommes.contains(menu) || parOperationLibre.contains(menu),
                     qPrintable(Colonne(q, 0) + " " + Colonne(q, 1)));
        }
    }

    // Les comptes copiés prennent les codes de leur plage, les quatre comptes fixes en plus.
    void planType_copieDonneLesCodesDeLaPlage() {
        const QString plan = Plans().first();
        const int n = CopierPlan(plan);
        SQLite::Statement c(Base(), "SELECT count(*) FROM Compte");
        c.executeStep();
        QCOMPARE(c.getColumn(0).getInt(), n + 4);
        table::Compte banque, fournisseurs;
        QVERIFY(LireCompte(Cle, QStringLiteral("512"), banque));
        QCOMPARE(banque.Menu, table::Entier(330));
        QCOMPARE(banque.ErCpt.trimmed(), QStringLiteral("E1"));
        QVERIFY(LireCompte(Cle, QStringLiteral("400"), fournisseurs));
        QCOMPARE(fournisseurs.Menu, table::Entier(155));
        QCOMPARE(fournisseurs.LibCpt.trimmed(), QStringLiteral("Fournisseurs collectif"));
    }
};

QTEST_GUILESS_MAIN(TestPlansTypes)
#include "test_plans_types.moc"
