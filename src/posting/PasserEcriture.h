#pragma once
// Le seul écrivain des livres : les lignes de la table de travail wSaisie deviennent des
// lignes d'Ecriture de l'exercice ouvert, et tous les cumuls suivent.

#include <QString>

// Débits et crédits de wSaisie égaux (table vide comprise) ; sinon une boîte critique.
bool ControlerEquilibre();

// Dernum : numéro de la première ligne (LastNumEcrit + 1 lu à l'ouverture de l'écran).
// Monnaie : celle des montants saisis ("E" pour les écrans de saisie).
void PasserEcriture(const QString& Dernum, const QString& Monnaie);
