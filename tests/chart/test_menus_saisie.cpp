// Menus livrés de la saisie logique (Tableau) : forme de chaque ligne, numérotation des
// familles, opérations que le programme connaît par leur clé, et codes des cases accordés
// aux codes Menu des règles de numérotation.

#include "support/DonneesReference.h"

#include "store/Base.h"

#include <QHash>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>
#include <memory>

namespace {

using namespace essai;

const QString Journaux = QStringLiteral("VATDI");

// Côtés (ERCPT) des plages de chaque code Menu, plages refusées exclues.
QHash<int, QSet<QString>> CotesParMenu() {
    QHash<int, QSet<QString>> l;
    for (const Plage& p : Plages())
        if (p.ercpt != "NN") l[p.menu.toInt()].insert(p.ercpt);
    return l;
}

QMap<QString, QList<table::Tableau>> CasesParOperation() {
    QMap<QString, QList<table::Tableau>> m;
    for (const table::Tableau& t : LignesTableau())
        m[t.tMenuLigne.left(2)] << t;
    return m;
}

QSet<int> ClassesDeLOperation(const QString& cle) {
    QSet<int> s;
    for (const table::Tableau& t : CasesParOperation().value(cle))
        for (int c : Classes(t))
            s.insert(c);
    return s;
}

} // namespace

class TestMenusSaisie : public QObject {
    Q_OBJECT
    std::unique_ptr<BaseEssai> base;

private slots:
    void init() { base = std::make_unique<BaseEssai>(); }
    void cleanup() { base.reset(); }

    void tableau_chaqueCaseBienFormee() {
        const QList<table::Tableau> cases = LignesTableau();
        QVERIFY(!cases.isEmpty());
        const QRegularExpression liste("^\\d{3}( \\d{3})*$");
        for (const table::Tableau& t : cases) {
            const QString cle = t.tMenuLigne;
            QVERIFY2(QRegularExpression("^[1-5][1-9][1-3]$").match(cle).hasMatch(),
                     qPrintable(cle));
            QCOMPARE(t.tMenuPrincipal, cle.left(2));
            QVERIFY2(!t.tLibMenuprinc.isEmpty(), qPrintable(cle));
            QVERIFY2(!t.tMessage.isEmpty(), qPrintable(cle));
            QVERIFY2(t.tJournal.size() == 1 && Journaux.contains(t.tJournal), qPrintable(cle));
            QVERIFY2(t.tSigne == "0" || t.tSigne == "1" || t.tSigne == "2", qPrintable(cle));
            QVERIFY2(t.tNombre == "1" || t.tNombre == "N", qPrintable(cle));
            QCOMPARE(t.tPremierMenu, cle.endsWith('1') ? QStringLiteral("1") : QStringLiteral("0"));
            QVERIFY2(t.tTaille >= 1 && t.tTaille <= 20, qPrintable(cle));
            // Codes aux positions 1, 5, 9... et rien d'autre derrière.
            QVERIFY2(liste.match(t.tMenuAutorise).hasMatch(),
                     qPrintable(cle + " " + t.tMenuAutorise));
            QCOMPARE(t.tMenuAutorise.size(), 4 * t.tTaille - 1);
            const QList<int> classes = Classes(t);
            if (classes.contains(999)) QVERIFY2(ToutLePlan(t), qPrintable(cle));
            QCOMPARE(QSet<int>(classes.begin(), classes.end()).size(), classes.size());
        }
    }

    // Les lignes d'une famille se suivent depuis 1 ; les cases d'une ligne depuis 1, sur un
    // même journal (celui de la famille) et sous un même nom.
    void tableau_numerotationSansTrou() {
        const QMap<QString, QList<table::Tableau>> ops = CasesParOperation();
        for (int famille = 1; famille <= 5; ++famille) {
            int n = 0;
            while (ops.contains(QStringLiteral("%1%2").arg(famille).arg(n + 1)))
                ++n;
            QVERIFY2(n >= 2, qPrintable(QString::number(famille)));
            for (auto it = ops.begin(); it != ops.end(); ++it)
                if (it.key().startsWith(QString::number(famille)))
                    QVERIFY2(it.key().mid(1).toInt() <= n, qPrintable(it.key()));
        }
        for (auto it = ops.begin(); it != ops.end(); ++it) {
            const QList<table::Tableau>& cases = it.value();
            QVERIFY2(cases.size() <= 3, qPrintable(it.key()));
            for (int i = 0; i < cases.size(); ++i) {
                QCOMPARE(cases[i].tMenuLigne, it.key() + QString::number(i + 1));
                QCOMPARE(cases[i].tLibMenuprinc, cases[0].tLibMenuprinc);
                QCOMPARE(cases[i].tJournal, QString(Journaux[it.key()[0].digitValue() - 1]));
            }
        }
    }

    // Les opérations que le programme reconnaît à leur clé existent.
    void tableau_clesConnuesDuProgramme() {
        const QMap<QString, QList<table::Tableau>> ops = CasesParOperation();
        for (const char* cle :
             {"11", "21", "31", "32", "33", "34", "35", "36", "37", "43", "56", "57"})
            QVERIFY2(ops.contains(QString::fromLatin1(cle)), cle);
        QCOMPARE(ops.value("31").size(), 2);
        QCOMPARE(ops.value("32").size(), 2);
        QCOMPARE(ops.value("33").size(), 3);
        QCOMPARE(ops.value("34").size(), 3);
        // 37 et le journal des opérations diverses : tout le plan.
        QVERIFY(ToutLePlan(ops.value("37").value(1)));
    }

    // Après une facture on revient sur la case 3, après une opération de trésorerie sur la
    // case 2 : c'est la case du tiers (ou de la contrepartie), qui n'est pas rappelée.
    void tableau_caseDeRetourApresEcriture() {
        const auto ops = CasesParOperation();
        QCOMPARE(Classes(ops.value("11").value(2)), QList<int>{170});
        QCOMPARE(Classes(ops.value("21").value(2)), QList<int>{160});
        QVERIFY(!ops.value("11").value(2).tRappel && !ops.value("21").value(2).tRappel);
        QVERIFY(ops.value("11").value(0).tRappel && ops.value("21").value(0).tRappel);
        QCOMPARE(Classes(ops.value("31").value(1)), QList<int>{170});
        QCOMPARE(Classes(ops.value("32").value(1)), QList<int>{160});
        QVERIFY(!ops.value("31").value(1).tRappel && !ops.value("32").value(1).tRappel);
        for (const char* cle : {"31", "32", "33", "34"}) {
            const table::Tableau& banque = ops.value(QString::fromLatin1(cle)).value(0);
            QVERIFY2(Classes(banque).contains(330) && Classes(banque).contains(340), cle);
            QVERIFY2(banque.tRappel, cle);
        }
    }

    // La saisie débit-crédit prend ses listes de comptes dans ces cases.
    void tableau_listesDeLaSaisieDebitCredit() {
        const QSet<int> ventes = ClassesDeLOperation("11");
        const QSet<int> achats = ClassesDeLOperation("21");
        QVERIFY(ventes.contains(170) && ventes.contains(230) && ventes.contains(600));
        QVERIFY(achats.contains(160) && achats.contains(235) && achats.contains(400));
        QVERIFY(ClassesDeLOperation("33").contains(600));
        QVERIFY(ClassesDeLOperation("34").contains(440));
    }

    // Les collectifs ne sont jamais proposés ; 699 et 799 seulement par l'écriture du
    // résultat, qui offre aussi 120 et 129.
    void tableau_comptesFixesSeulementLaOuIlFaut() {
        for (const table::Tableau& t : LignesTableau()) {
            const QList<int> c = Classes(t);
            QVERIFY2(!c.contains(155) && !c.contains(165), qPrintable(t.tMenuLigne));
            if (c.contains(525) || c.contains(625))
                QVERIFY2(t.tMenuLigne.startsWith("57") && t.tJournal == "I",
                         qPrintable(t.tMenuLigne));
        }
        const QSet<int> resultat = ClassesDeLOperation("57");
        for (int c : {525, 625, 50, 55})
            QVERIFY2(resultat.contains(c), qPrintable(QString::number(c)));
    }

    // Chaque code d'une case est celui d'une plage du plan ; quand la case fixe le signe,
    // chaque code n'a qu'un côté (jamais « actif ou passif »), sinon le signe fixé
    // donnerait débit ou crédit selon le compte choisi à la création.
    void tableau_codesConnusEtSignesDetermines() {
        const QHash<int, QSet<QString>> cotes = CotesParMenu();
        for (const table::Tableau& t : LignesTableau()) {
            if (ToutLePlan(t)) continue;
            for (int c : Classes(t)) {
                const QString quoi = t.tMenuLigne + " " + QString::number(c);
                QVERIFY2(cotes.contains(c), qPrintable(quoi));
                if (t.tSigne == "0") continue;
                QVERIFY2(cotes[c].size() == 1 && !cotes[c].contains("WW"), qPrintable(quoi));
            }
        }
    }

    // Une case où le signe est libre n'existe que là où le montant peut aller dans les deux
    // sens : trésorerie diverse (37) et opération diverse (43).
    void tableau_signesLibresSeulementPourLesOperationsDiverses() {
        QSet<QString> libres;
        for (const table::Tableau& t : LignesTableau())
            if (t.tSigne == "0") libres.insert(t.tMenuLigne.left(2));
        QCOMPARE(libres, (QSet<QString>{"37", "43"}));
    }
};

QTEST_GUILESS_MAIN(TestMenusSaisie)
#include "test_menus_saisie.moc"
