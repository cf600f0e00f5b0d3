// Chaque menu du Tableau livré, par toute la chaîne des écrans : Choisais, Saislog,
// ChoixCpt (un compte par case), SaisQuad (un montant par compte), "&OK". Les lignes
// passées portent les comptes, sens, signes et journal attendus ; les livres se vérifient.

#include "support/DossierEssai.h"
#include "support/PiloteModal.h"

#include "SaisieEssai.h"
#include "entry/Choisais.h"
#include "posting/Verification.h"
#include "ui/Application.h"

#include <QLineEdit>
#include <QtTest>

using namespace essai;
using support::PiloteModal;

namespace {

struct LignePrevue {
    QString numero, code;
    int montant = 0; // en euros, signé comme il est tapé
    int slot = 1;
    QString Sens() const {
        const bool positif = montant > 0;
        return code.startsWith(u'E') == positif ? QStringLiteral("D") : QStringLiteral("C");
    }
};

struct MenuPrevu {
    QString cle, journal;
    QList<LignePrevue> lignes;
};

int Cote(const QString& code) {
    return code.startsWith(u'E') ? 1 : -1;
}

bool SigneAdmis(const QString& signe, int montant) {
    if (signe == QLatin1String("1")) return montant > 0;
    if (signe == QLatin1String("2")) return montant < 0;
    return true;
}

// Montants de 100 ou 200 signés, un par ligne, qui équilibrent ACTIF + CHARGES et
// PASSIF + PRODUITS en respectant le signe de chaque case.
bool Equilibrer(QList<LignePrevue>& l, const QStringList& signes, int i = 0) {
    if (i == l.size()) {
        int somme = 0;
        for (const LignePrevue& x : l)
            somme += Cote(x.code) * x.montant;
        return somme == 0;
    }
    for (int m : {100, -100, 200, -200}) {
        if (!SigneAdmis(signes[i], m)) continue;
        l[i].montant = m;
        if (Equilibrer(l, signes, i + 1)) return true;
    }
    return false;
}

// Un compte par case (tous différents, rangés dans une des quatre listes) et des montants
// qui s'équilibrent ; faux si le plan copié ne le permet pas.
bool Prevoir(const QString& cle, MenuPrevu& prevu) {
    QList<table::Tableau> cases;
    for (int slot = 1; slot <= 3; ++slot) {
        table::Tableau t;
        if (LireLigneMenu(cle + QString::number(slot), t)) cases << t;
    }
    if (cases.isEmpty()) return false;
    // Une case unique (tout le plan) reçoit deux comptes : une écriture en a au moins deux.
    if (cases.size() == 1) cases << cases.first();
    QList<QStringList> candidats;
    for (const table::Tableau& t : cases) {
        QStringList c;
        for (const QString& n : ComptesProposes(t))
            if (QStringList({"E1", "R1", "E2", "R2"}).contains(LireCpt(n).ErCpt.trimmed())) c << n;
        candidats << c.mid(0, 6);
    }
    QStringList signes;
    for (const table::Tableau& t : cases)
        signes << t.tSigne.trimmed();
    std::function<bool(int, QList<LignePrevue>&)> essayer = [&](int i, QList<LignePrevue>& l) {
        if (i == cases.size()) return Equilibrer(l, signes);
        for (const QString& n : candidats[i]) {
            if (std::any_of(l.begin(), l.end(),
                            [&](const LignePrevue& x) { return x.numero == n; }))
                continue;
            l << LignePrevue{n, LireCpt(n).ErCpt.trimmed(), 0,
                             cases[i].tMenuLigne.right(1).toInt()};
            if (essayer(i + 1, l)) return true;
            l.removeLast();
        }
        return false;
    };
    prevu.cle = cle;
    prevu.journal = cases.value(0).tJournal.trimmed();
    prevu.lignes.clear();
    return essayer(0, prevu.lignes);
}

QStringList Menus() {
    QStringList l;
    for (const table::Tableau& t : LignesTableau())
        if (t.tMenuLigne.endsWith(u'1')) l << t.tMenuLigne.left(2);
    return l;
}

} // namespace

class TestSaisQuadMenus : public QObject {
    Q_OBJECT
    std::unique_ptr<support::DossierEssai> dossier;

    // La chaîne entière pour un menu ; rend les lignes passées (compte, sens, montant, journal).
    QStringList SaisirParLesEcrans(const MenuPrevu& m) {
        QList<CaseOperation> cases;
        for (const LignePrevue& l : m.lignes)
            cases.append({l.slot, l.numero, QString::number(l.montant)});
        const QString echec = SaisirOperation(m.cle.left(1).toInt(), m.cle.mid(1, 1).toInt(), cases,
                                              QStringLiteral("Essai du menu ") + m.cle);
        if (!echec.isEmpty()) return {QStringLiteral("échec du pilote : ") + echec};
        QStringList l;
        SQLite::Statement q(Base(), "SELECT NumCptEcr, DCEcr, MntEcr, Journal FROM Ecriture "
                                    "WHERE LibEcr=? ORDER BY NumEcr");
        q.bind(1, ("Essai du menu " + m.cle).toStdString());
        while (q.executeStep())
            l << QStringLiteral("%1 %2 %3 %4")
                     .arg(Colonne(q, 0), Colonne(q, 1))
                     .arg(q.getColumn(2).getInt64() / 10000)
                     .arg(Colonne(q, 3));
        return l;
    }

private slots:
    void init() {
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirExercice(*dossier);
        ui::ViderJournalBoites();
    }
    void cleanup() {
        FermerBase();
        dossier.reset();
    }

    void chaqueMenu_uneEcritureJusteParLesEcrans() {
        GardeBoites garde;
        const QStringList menus = Menus();
        QVERIFY(menus.size() >= 20);
        QStringList faits;
        QStringList essayes;
        for (const QString& plan : Plans()) {
            CopierPlan(plan);
            Base().exec("DELETE FROM Ecriture");
            for (const QString& cle : menus) {
                if (faits.contains(cle)) continue;
                MenuPrevu m;
                if (!Prevoir(cle, m)) continue;
                // L'écriture du résultat se passe le dernier jour de l'exercice.
                session().DateSaisieCourante = cle == QLatin1String("57")
                                                   ? QStringLiteral("31/12/2024")
                                                   : QStringLiteral("15/03/2024");
                QStringList attendues;
                for (const LignePrevue& l : m.lignes)
                    attendues << QStringLiteral("%1 %2 %3 %4")
                                     .arg(l.numero, l.Sens())
                                     .arg(l.montant)
                                     .arg(m.journal);
                QStringList passees = SaisirParLesEcrans(m);
                QCOMPARE(passees, attendues);
                QVERIFY2(Verification(), qPrintable(cle));
                faits << cle;
                essayes << plan + ":" + cle;
            }
        }
        qInfo("Menus saisis (plan:menu) : %s", qPrintable(essayes.join(' ')));
        QCOMPARE(garde.inattendues, QStringList());
        QCOMPARE(faits.size(), menus.size());
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestSaisQuadMenus t;
    return QTest::qExec(&t, argc, argv);
}
#include "test_saisquad_menus.moc"
