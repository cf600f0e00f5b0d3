#include "chart/DonneesPlan.h"

#include "base/Valeur.h"
#include "chart/GestionPlan.h"
#include "posting/Filtre.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <SQLiteCpp/Transaction.h>

namespace plan {

namespace {

const QString sectionPlans = QStringLiteral("Plans Types");

QString ClePlanRetenu(int numSoc) {
    return QStringLiteral("PlanChoisi") + QString::number(numSoc);
}

QString SurQuatreChiffres(double v) {
    return QStringLiteral("%1").arg(static_cast<long long>(v), 4, 10, QLatin1Char('0'));
}

QString Colonne(SQLite::Statement& q, int i) {
    return QString::fromUtf8(q.getColumn(i).getText()).trimmed();
}

// Numéro, libellé et montant de chaque ligne, la requête remise à zéro ensuite.
std::vector<CompteListe> LireComptes(SQLite::Statement& q) {
    std::vector<CompteListe> comptes;
    while (q.executeStep())
        comptes.push_back(
            {Colonne(q, 0), Colonne(q, 1), Montant::depuisDixMilliemes(q.getColumn(2).getInt64())});
    q.reset();
    return comptes;
}

const QString horsPlan =
    QStringLiteral("Ce numéro de compte n'existe pas dans le Plan Comptable Officiel");

} // namespace

QList<PlanStandard> LirePlansStandard() {
    const FichierProfil ini(CheminIni());
    const int nbPlan =
        static_cast<int>(ValeurNumerique(ini.Lire(sectionPlans, QStringLiteral("NbPlan"), "0")));
    QList<PlanStandard> plans;
    for (int i = 1; i <= nbPlan; ++i)
        plans.append({SurQuatreChiffres(
                          ValeurNumerique(ini.Lire(sectionPlans, QStringLiteral("Plan%1").arg(i)))),
                      ini.Lire(sectionPlans, QStringLiteral("Libel%1").arg(i))});
    return plans;
}

QString PlanRetenu(int numSoc) {
    const FichierProfil ini(CheminIni());
    return SurQuatreChiffres(
        ValeurNumerique(ini.Lire(sectionPlans, ClePlanRetenu(numSoc), QStringLiteral("0000"))));
}

void RetenirPlan(int numSoc, const QString& numero) {
    FichierProfil(CheminIni()).Ecrire(sectionPlans, ClePlanRetenu(numSoc), numero);
}

std::vector<CompteListe> ComptesDuPlanStandard(const QString& numeroPlan) {
    auto& q = Requete("SELECT NumCpt, LibCpt FROM PlanType WHERE NumPlan=? ORDER BY rowid");
    q.bind(1, numeroPlan.toStdString());
    std::vector<CompteListe> comptes;
    while (q.executeStep())
        comptes.push_back({Colonne(q, 0), Colonne(q, 1), Montant()});
    q.reset();
    return comptes;
}

std::vector<CompteListe> ComptesDeLExercice(const QString& cle, int menu) {
    auto& q = Requete(menu ? "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt=? AND Menu=? "
                             "ORDER BY rowid"
                           : "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt=? "
                             "ORDER BY rowid");
    q.bind(1, cle.toStdString());
    if (menu) q.bind(2, menu);
    return LireComptes(q);
}

std::vector<CompteListe> ComptesDuCode(const QString& cle, const QString& erCpt) {
    auto& q = Requete("SELECT NumCpt, LibCpt, Sde FROM Compte WHERE CleCpt=? AND ErCpt=? "
                      "ORDER BY rowid");
    q.bind(1, cle.toStdString());
    q.bind(2, erCpt.toStdString());
    return LireComptes(q);
}

void ChangerLibelleCompte(const QString& cle, const QString& numero, const QString& libelle) {
    table::Compte c;
    if (LireCompte(cle, numero, c)) {
        c.LibCpt = TexteLu(libelle, 40);
        MajCompte(cle, numero, c);
    }
    if (numero >= QLatin1String("600") && numero != QLatin1String("799") &&
        numero != QLatin1String("699")) {
        // Valeur liée : apostrophes et guillemets gardés tels que tapés.
        auto& q = Requete("UPDATE Budget SET LibBud=? WHERE CleCpt=? AND NumBud=?");
        q.bind(1, TexteRange(libelle, 40).toStdString());
        q.bind(2, cle.toStdString());
        q.bind(3, numero.toStdString());
        q.exec();
    }
}

std::vector<CompteListe> CopierComptes(const QString& cle, const std::vector<CompteListe>& comptes,
                                       const std::function<void(int)>& progression) {
    std::vector<CompteListe> crees;
    SQLite::Transaction copie(Base());
    for (int i = 0; i < static_cast<int>(comptes.size()); ++i) {
        const CompteListe& c = comptes[i];
        if (AssurerCompte(cle, c.numero, c.libelle, QString(), QString()))
            crees.push_back({c.numero, c.libelle.left(40), Montant()});
        if (progression) progression(i);
    }
    copie.commit();
    return crees;
}

Refus ControlerCompteTape(bool numeroVide, const QString& numero, const QString& libelle) {
    if (numeroVide) return {QStringLiteral("Le numéro de compte doit être saisi !"), Champ::Numero};
    if (libelle.trimmed().isEmpty())
        return {QStringLiteral("Le libellé doit être saisi !"), Champ::Libelle};
    if (!NumeroDansLesPlages(ValeurTexte(numero)))
        return {QStringLiteral("Les numéros de compte sont compris entre 100..... et 799....."),
                Champ::Numero};
    return {};
}

Refus CreerCompteTape(const QString& cle, const QString& numero, const QString& libelle,
                      const QString& ercpt, Cote cote) {
    // La plage que la création du compte lira (79 se cherche en 7900) doit donner une classe.
    const QString classeCible = LireFiltre(CleFiltre(numero)).ERCPT.trimmed();
    if (classeCible.isEmpty() || classeCible == QLatin1String("NN"))
        return {horsPlan, Champ::Numero};
    QString code, classe;
    if (ercpt == QLatin1String("WW") || classeCible == QLatin1String("WW")) {
        if (cote == Cote::Aucun)
            return {QStringLiteral("Pour ce compte vous devez choisir entre Actif et Passif."),
                    Champ::Cote};
        code = cote == Cote::Actif ? QStringLiteral("E1") : QStringLiteral("R1");
        classe = cote == Cote::Actif ? QStringLiteral("DAR") : QStringLiteral("DAP");
    }
    if (!AssurerCompte(cle, numero, libelle, code, classe))
        return {QStringLiteral("Ce compte existe déjà !"), Champ::Aucun};
    return {};
}

} // namespace plan
