#include "budget/DonneesBudget.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Statement.h>

namespace budget {

std::vector<table::Budget> Lignes(const QString& cle) {
    SQLite::Statement q(Base(), "SELECT NumBud FROM Budget WHERE CleCpt = ? ORDER BY NumBud");
    q.bind(1, cle.toStdString());
    std::vector<table::Budget> lignes;
    while (q.executeStep()) {
        table::Budget b;
        if (LireBudget(cle, QString::fromUtf8(q.getColumn(0).getText()), b)) lignes.push_back(b);
    }
    return lignes;
}

bool Exercice(const QString& cle, bool* clos) {
    table::Constante k;
    if (!LireConstante(cle, k)) return false;
    if (clos) *clos = k.ExerciceClos;
    return true;
}

Montant SommePrevisions(const QString& cle, const QString& erBud) {
    SQLite::Statement q(Base(), "SELECT COALESCE(SUM(Budget), 0) FROM Budget WHERE CleCpt = ? "
                                "AND ERBUD = ?");
    q.bind(1, cle.toStdString());
    q.bind(2, erBud.toStdString());
    q.executeStep();
    return Montant::depuisDixMilliemes(q.getColumn(0).getInt64());
}

bool EnregistrerPrevisions(const QString& cle, const QString& numBud, bool suivant,
                           const table::Mensuel& mois) {
    table::Budget b;
    if (!LireBudget(cle, numBud, b)) return false;
    Montant total;
    for (int m = 1; m <= 12; ++m)
        total += mois[static_cast<std::size_t>(m)];
    (suivant ? b.BudFutM : b.BudgetM) = mois;
    (suivant ? b.BudFut : b.Budget) = total;
    return MajBudget(cle, numBud, b);
}

bool PremierMois(const QString& dateSaisie, int moisDebutExercice) {
    return dateSaisie.mid(3, 2).toInt() == moisDebutExercice;
}

int MoisArret(const QString& dateSaisie, int modeCumul, int* annee) {
    const int m = dateSaisie.mid(3, 2).toInt();
    int a = dateSaisie.right(4).toInt();
    int arret = m;
    if (modeCumul == 2) {
        arret = m - 1;
        if (m < 2) {
            arret = 12;
            --a;
        }
    }
    if (annee) *annee = a;
    return arret;
}

void TextesArret(const QString& dateSaisie, int modeCumul, QString& titre, QString& arret) {
    if (modeCumul == 1) {
        titre = QStringLiteral("Cumuls arrêtés au :");
        arret = dateSaisie;
        return;
    }
    int annee = 0;
    const int mois = MoisArret(dateSaisie, 2, &annee);
    titre = QStringLiteral("Cumuls arrêtés à :");
    arret = QStringLiteral("Fin ") + NomMois(mois) + QLatin1Char(' ') + QString::number(annee);
}

std::vector<int> MoisDeLExercice(int moisDebutExercice) {
    std::vector<int> mois;
    for (int i = 0; i < 12; ++i) {
        int m = i + moisDebutExercice;
        if (m > 12) m -= 12;
        if (m < 1) m += 12;
        mois.push_back(m);
    }
    return mois;
}

Cumuls Cumuler(const table::Budget& b, int moisDebutExercice, int moisArret) {
    Cumuls c;
    for (const int m : MoisDeLExercice(moisDebutExercice)) {
        const auto i = static_cast<std::size_t>(m);
        c.reelAnterieur += b.ReelAM[i];
        c.reel += b.ReelM[i];
        c.prevision += b.BudgetM[i];
        c.ecart = c.reel - c.prevision;
        // Le mois d'arrêt compte, les suivants non.
        if (m == moisArret) break;
    }
    return c;
}

} // namespace budget
