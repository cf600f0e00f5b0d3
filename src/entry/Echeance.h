#pragma once
// Contrôle de la date d'échéance commun aux deux saisies.

#include <QString>

// Vrai quand l'échéance (JJ/MM/AAAA) tombe avant la date de saisie ou plus de trois mois
// après elle.
bool EcheanceDouteuse(const QString& echeance);

// Vrai quand l'échéance peut être gardée : plausible, ou confirmée par l'utilisateur.
bool ConfirmerEcheance(const QString& echeance);
