#pragma once
// Les données du plan comptable, sans écran : plans standard livrés, comptes de
// l'exercice, copie d'un plan entier, et la création d'un compte tapé avec ses contrôles
// (le refus est rendu en texte, l'écran le montre).

#include "base/Montant.h"

#include <QList>
#include <QString>
#include <functional>
#include <vector>

namespace plan {

// Un plan standard de maroval.ini (section "Plans Types") : numéro sur quatre chiffres.
struct PlanStandard {
    QString numero;
    QString libelle;
};
QList<PlanStandard> LirePlansStandard();
// Numéro du plan retenu pour la société ("0000" : aucun) ; le retenir est une commodité
// pour la visite suivante, un échec d'écriture n'empêche rien.
QString PlanRetenu(int numSoc);
void RetenirPlan(int numSoc, const QString& numero);

struct CompteListe {
    QString numero;
    QString libelle;
    Montant solde;
};
// Comptes d'un plan standard, dans l'ordre livré (solde nul).
std::vector<CompteListe> ComptesDuPlanStandard(const QString& numeroPlan);
// Comptes de l'exercice dans l'ordre de création ; menu non nul : ceux de cette fonction.
std::vector<CompteListe> ComptesDeLExercice(const QString& cle, int menu = 0);

// Comptes de ce code (E1 actif, R1 passif...) dans l'ordre de création, solde d'ouverture
// (Sde) pour solde.
std::vector<CompteListe> ComptesDuCode(const QString& cle, const QString& erCpt);

// Nouveau libellé d'un compte, et de sa ligne de budget pour un compte de charge ou de
// produit (600 et au-delà, hors 699 et 799), rangé tel que tapé.
void ChangerLibelleCompte(const QString& cle, const QString& numero, const QString& libelle);

// Copie des comptes donnés (numéro, libellé) dans l'exercice en une seule validation : un
// arrêt au milieu ne laisse aucun compte à moitié pris. Rend les comptes créés ;
// progression(i) après chaque compte.
std::vector<CompteListe> CopierComptes(const QString& cle, const std::vector<CompteListe>& comptes,
                                       const std::function<void(int)>& progression);

// Création d'un compte tapé : le refus (texte de la boîte) et le champ à reprendre.
enum class Champ { Aucun, Numero, Libelle, Cote };
struct Refus {
    QString texte;
    Champ champ = Champ::Aucun;
    bool estRefus() const { return !texte.isEmpty(); }
};
enum class Cote { Aucun, Actif, Passif };

// Contrôles avant la lecture des règles de numérotation : numéro et libellé saisis, numéro
// dans les plages des comptes généraux.
Refus ControlerCompteTape(bool numeroVide, const QString& numero, const QString& libelle);
// Création une fois la plage du numéro lue (ercpt : son code) : la plage où la création
// cherchera doit donner une classe, un compte à double côté demande l'actif ou le passif,
// un compte existant est refusé.
Refus CreerCompteTape(const QString& cle, const QString& numero, const QString& libelle,
                      const QString& ercpt, Cote cote);

} // namespace plan
