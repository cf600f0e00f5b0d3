#pragma once
// Reprise d'une base entière depuis une sauvegarde, et l'avertissement de l'ancienne
// restauration par disquettes, communs à la création de société et à l'écran principal.

#include <QString>

namespace ecran {

// Restaure toute la base depuis une archive choisie par l'utilisateur, après ses
// confirmations, par la fin commune des restaurations ; une restauration réussie termine
// le programme.
void RestaurerBaseComplete();

// Le long avertissement en capitales, celui du menu ou celui de la création d'une société ;
// vrai si l'utilisateur confirme.
bool AvertissementAncienneRestauration(bool depuisLeMenu);

} // namespace ecran
