#pragma once
// Porte des données du budget : les lignes de la table Budget de l'exercice, l'écriture des
// prévisions d'un compte, et les cumuls arrêtés à un mois pour le contrôle budgétaire.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QString>
#include <vector>

namespace budget {

// Les lignes de budget de l'exercice, par numéro.
std::vector<table::Budget> Lignes(const QString& cle);

// Vrai si l'exercice de cette clé existe ; clos reçoit alors son état.
bool Exercice(const QString& cle, bool* clos);

// Somme des prévisions annuelles (Budget) des lignes de ce code (E2 charges, R2 produits).
Montant SommePrevisions(const QString& cle, const QString& erBud);

// Les prévisions d'un compte : douze mois (indexés par le mois du calendrier, 1 à 12) et
// leur total annuel, pour l'exercice en cours (Budget, BudgetMnn) ou le suivant (BudFut,
// BudFutMnn). Faux si la ligne n'existe pas.
bool EnregistrerPrevisions(const QString& cle, const QString& numBud, bool suivant,
                           const table::Mensuel& mois);

// Mois d'arrêt des cumuls : celui de la date de saisie (mode 1) ou le précédent (mode 2, qui
// revient à décembre de l'année d'avant en janvier). annee reçoit l'année de ce mois.
int MoisArret(const QString& dateSaisie, int modeCumul, int* annee = nullptr);
// Vrai quand la date de saisie tombe dans le premier mois de l'exercice : il n'y a alors pas
// de mois précédent où arrêter les cumuls.
bool PremierMois(const QString& dateSaisie, int moisDebutExercice);

struct Cumuls {
    Montant reelAnterieur, reel, prevision, ecart;
};
// Cumuls d'une ligne depuis le mois de début de l'exercice jusqu'au mois d'arrêt compris ;
// un mois d'arrêt absent de la liste des douze mois les compte tous.
Cumuls Cumuler(const table::Budget& b, int moisDebutExercice, int moisArret);

// Les deux textes de l'arrêt des cumuls : « Cumuls arrêtés au : » et la date de saisie, ou
// « Cumuls arrêtés à : » et « Fin <mois précédent> <année> ».
void TextesArret(const QString& dateSaisie, int modeCumul, QString& titre, QString& arret);

// Les douze mois de l'exercice dans l'ordre des lignes, à partir du mois de début.
std::vector<int> MoisDeLExercice(int moisDebutExercice);

} // namespace budget
