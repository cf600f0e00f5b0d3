#pragma once
// Outils des essais des tables livrées (filtre, Tableau, PlanType) : une base neuve, les
// lignes chargées, le numéro cherché à la création d'un compte, la copie d'un plan type et
// les comptes qu'une case de menu propose.

#include "support/DossierEssai.h"
#include "support/SessionEssai.h"

#include "store/Enregistrements.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <SQLiteCpp/Statement.h>

namespace essai {

// Une base neuve, avec les tables livrées, dans un dossier de données temporaire.
class BaseEssai {
public:
    BaseEssai();
    ~BaseEssai();
    BaseEssai(const BaseEssai&) = delete;
    BaseEssai& operator=(const BaseEssai&) = delete;

private:
    support::DossierEssai dossier;
};

// Texte d'une colonne, blancs de fin ôtés.
QString Colonne(SQLite::Statement& q, int i);

struct Plage {
    QString inf, sup, message, ercpt, bilan;
    bool tiers = false;
    QString menu;
};

QList<Plage> Plages();

// Plage trouvée pour un numéro à la création d'un compte.
table::Filtre FiltreDuCompte(const QString& numero);

QList<table::Tableau> LignesTableau();
table::Tableau CaseDeMenu(const QString& cle);

// Codes d'une case, lus comme le choix des comptes les lit : tTaille codes de trois
// caractères aux positions 1, 5, 9...
QList<int> Classes(const table::Tableau& t);
bool ToutLePlan(const table::Tableau& t);

// Copie de la totalité d'un plan type, puis les quatre comptes faits en quittant le plan ;
// rend le nombre de comptes du plan type.
int CopierPlan(const QString& numPlan);

// Comptes de l'exercice d'essai qu'une case propose, par la requête du choix des comptes.
QStringList ComptesProposes(const table::Tableau& t);

QStringList Plans();

} // namespace essai
