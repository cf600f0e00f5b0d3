#pragma once
// Valeur numérique d'un texte à la manière des anciens Basic : blancs sautés, lecture
// jusqu'au premier caractère qui ne peut pas continuer le nombre, 0 s'il n'y en a pas.

#include <QString>

double ValeurNumerique(const QString& texte);
