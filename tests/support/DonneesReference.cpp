#include "support/DonneesReference.h"
#include "support/ExerciceEssai.h"

#include "posting/Filtre.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Transaction.h>

namespace essai {

BaseEssai::BaseEssai() {
    OuvrirBase(dossier.Chemin());
}

BaseEssai::~BaseEssai() {
    FermerBase();
}

QString Colonne(SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText()).trimmed();
}

QList<Plage> Plages() {
    QList<Plage> l;
    SQLite::Statement q(Base(), "SELECT BorneInf, BorneSup, Message, ERCPT, Bilan, Tiers, Menu "
                                "FROM filtre ORDER BY BorneInf");
    while (q.executeStep())
        l << Plage{Colonne(q, 0), Colonne(q, 1), Colonne(q, 2),
                   Colonne(q, 3), Colonne(q, 4), q.getColumn(5).getInt() != 0,
                   Colonne(q, 6)};
    return l;
}

table::Filtre FiltreDuCompte(const QString& numero) {
    table::Filtre f = LireFiltre(::CleFiltre(numero));
    f.ERCPT = f.ERCPT.trimmed();
    f.Bilan = f.Bilan.trimmed();
    f.Menu = f.Menu.trimmed();
    f.Message = f.Message.trimmed();
    return f;
}

QList<table::Tableau> LignesTableau() {
    QList<table::Tableau> l;
    SQLite::Statement q(Base(),
                        "SELECT tMenuLigne, tMenuPrincipal, tLibMenuprinc, tPremierMenu, tJournal, "
                        "tMessage, tRappel, tNombre, tSigne, tTaille, tMenuAutorise "
                        "FROM Tableau ORDER BY tMenuLigne");
    while (q.executeStep()) {
        table::Tableau t;
        t.tMenuLigne = Colonne(q, 0);
        t.tMenuPrincipal = Colonne(q, 1);
        t.tLibMenuprinc = Colonne(q, 2);
        t.tPremierMenu = Colonne(q, 3);
        t.tJournal = Colonne(q, 4);
        t.tMessage = Colonne(q, 5);
        t.tRappel = q.getColumn(6).getInt() != 0;
        t.tNombre = Colonne(q, 7);
        t.tSigne = Colonne(q, 8);
        t.tTaille = static_cast<table::Entier>(q.getColumn(9).getInt());
        // Sans rogner : les positions des codes comptent.
        t.tMenuAutorise = QString::fromUtf8(q.getColumn(10).getText());
        l << t;
    }
    return l;
}

table::Tableau CaseDeMenu(const QString& cle) {
    for (const table::Tableau& t : LignesTableau())
        if (t.tMenuLigne == cle) return t;
    return {};
}

QList<int> Classes(const table::Tableau& t) {
    QList<int> l;
    for (int i = 0; i < t.tTaille; ++i)
        l << t.tMenuAutorise.mid(4 * i, 3).toInt();
    return l;
}

bool ToutLePlan(const table::Tableau& t) {
    return t.tTaille == 1 && t.tMenuAutorise.left(3).toInt() == 999;
}

int CopierPlan(const QString& numPlan) {
    // Une transaction pour la vitesse des tests : le résultat est celui des écritures une à une.
    SQLite::Transaction t(Base());
    Base().exec("DELETE FROM Compte");
    Base().exec("DELETE FROM Budget");
    SQLite::Statement q(Base(), "SELECT NumCpt, LibCpt FROM PlanType WHERE NumPlan = ?");
    q.bind(1, numPlan.toStdString());
    int n = 0;
    // Chaque compte comme la création d'un compte du plan le fait (codes de la plage filtre du
    // numéro, ligne de budget des charges et produits).
    while (q.executeStep()) {
        Compte(Colonne(q, 0), Colonne(q, 1));
        ++n;
    }
    Compte(QStringLiteral("400"), QStringLiteral("Fournisseurs collectif"));
    Compte(QStringLiteral("410"), QStringLiteral("Clients collectif"));
    Compte(QStringLiteral("699"), QStringLiteral("Compte pour résultat positif"));
    Compte(QStringLiteral("799"), QStringLiteral("Compte pour résultat négatif"));
    t.commit();
    return n;
}

QStringList ComptesProposes(const table::Tableau& t) {
    std::string sql = "SELECT NumCpt FROM Compte WHERE CleCpt = ? AND ";
    if (ToutLePlan(t)) {
        sql += "NumCpt <> '400     ' AND NumCpt <> '410     ' AND NumCpt <> '699     ' AND "
               "NumCpt <> '799     '";
    } else {
        QStringList conditions;
        for (int c : Classes(t))
            conditions << QStringLiteral("Menu = %1").arg(c);
        sql += "(" + conditions.join(QStringLiteral(" OR ")).toStdString() + ")";
    }
    SQLite::Statement q(Base(), sql + " ORDER BY NumCpt");
    q.bind(1, Cle.toStdString());
    QStringList l;
    while (q.executeStep())
        l << Colonne(q, 0);
    return l;
}

QStringList Plans() {
    QStringList l;
    SQLite::Statement q(Base(), "SELECT DISTINCT NumPlan FROM PlanType ORDER BY NumPlan");
    while (q.executeStep())
        l << Colonne(q, 0);
    return l;
}

} // namespace essai
