#pragma once
// Contrôle d'un montant tapé dans une grille, commun à toutes les saisies : la lecture
// elle-même ne refuse jamais rien, il faut donc dire d'abord si le texte est un nombre.

#include <QString>

// Vrai pour un nombre et rien d'autre : blancs ignorés, un signe devant, des chiffres
// (15 au plus) avec une virgule ou un point au plus, et le symbole monétaire de la
// session permis à la fin (une cellule rouverte montre le montant affiché).
bool MontantLisible(const QString& texte);
