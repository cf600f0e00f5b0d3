#pragma once
// Exercices d'une société : état, suppression, dates du premier exercice.

#include <QString>

namespace ecran {

// Lit le nombre d'écritures et la clôture de l'exercice ; faux si l'exercice n'existe pas
// (les valeurs restent alors à 0 et faux).
bool LireEtatExercice(int numSoc, int exercice, double& lastNumEcrit, bool& exerciceClos);

// Supprime l'exercice et tout ce qui s'y rattache ; le plan de l'exercice suivant pourra
// être refait depuis l'exercice précédent.
void SupprimerExercice(int numSoc, int exercice);

// Dernier jour du premier exercice commençant le jour j du mois m de l'année a, en AAAAMMJJ :
// le dernier jour du mois qui précède m, un an plus tard (ou le 31/12 de a pour un 1er janvier).
QString CalculDateFin(int jour, int mois, int annee);
// Le début tel qu'il est rangé : AAAAMMJJ sans contrôle du jour.
QString CalculDateDebut(int jour, int mois, int annee);

} // namespace ecran
