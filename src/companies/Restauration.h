#pragma once
// Reprise d'une base entière depuis une sauvegarde, et l'avertissement de l'ancienne
// restauration par disquettes, communs à la création de société et à l'écran principal.

#include <QString>
#include <functional>
#include <optional>

namespace ecran {

// Extraction de maroval.mdb d'une archive dans le dossier des données (base fermée) ;
// vrai si la base est bien là ensuite.
using Extraction = std::function<bool(const QString& archive)>;

// L'extraction du module des sauvegardes, vide tant qu'il ne la livre pas.
Extraction ExtractionLivree();
bool ExtractionDisponible();
// Pour les tests : une autre extraction ; une fonction vide fait comme si le module ne la
// livrait pas, rien (nullopt) rend celle du module.
void FixerExtraction(std::optional<Extraction> extraction);

// Restaure toute la base depuis une archive choisie par l'utilisateur, après ses
// confirmations ; une restauration réussie termine le programme.
void RestaurerBaseComplete();

// Le long avertissement en capitales ; vrai si l'utilisateur confirme.
bool AvertissementAncienneRestauration();

} // namespace ecran
