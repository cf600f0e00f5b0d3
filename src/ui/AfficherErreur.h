#pragma once
// Boîte d'erreur d'exécution (restauration par disquettes), montrée seulement quand une
// erreur est posée (numéro non nul) ; son texte est celui de TexteErreur.

#include <QString>

void AfficherErreur(const QString& texte, int numeroErreur, const QString& libelleErreur);
