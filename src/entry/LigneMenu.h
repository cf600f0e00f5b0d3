#pragma once
// La seule lecture de Tableau : une ligne par case de menu, clé famille-ligne-case.

#include "store/Enregistrements.h"

#include <QString>

// Sans ligne pour la clé, l'enregistrement garde ce qu'il avait et la réponse est non.
bool LireLigneMenu(const QString& cle, table::Tableau& ligne);

// Classe numéro n (de 1 à tTaille) de tMenuAutorise : trois chiffres tous les quatre
// caractères. Au-delà de vingt classes, erreur d'exécution (indice hors plage).
int ClasseAutorisee(const table::Tableau& ligne, int n);
