#pragma once
// Règles de numérotation : un compte prend sa classe, son poste du bilan, sa qualité de
// tiers et sa fonction de la plage de la table filtre qui couvre son numéro.

#include <QString>
#include <cstdint>

// Clé de recherche dans filtre : un numéro dont la valeur numérique tient en moins de trois
// caractères est complété de "0" à trois puis d'un "0" de plus (41 et 41DUPONT cherchent
// 4100, 7 cherche 7000) ; sinon le numéro lui-même.
QString CleFiltre(const QString& numero);

// Crée le compte (et sa ligne de budget pour les numéros de 600 et au-delà, hors 699 et
// 799) s'il n'existe pas ; rend vrai s'il l'a créé. erCpt et bilan vides : ceux de filtre.
bool AssurerCompte(const QString& cle, const QString& numero, const QString& libelle,
                   const QString& erCpt, const QString& bilan);

// Fonction (Menu) d'un compte de l'exercice ouvert ; 0 pour un compte absent.
std::int16_t LireMenuCompte(const QString& numero);
