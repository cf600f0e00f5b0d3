#pragma once
// Textes des boîtes de la reprise après un arrêt brutal, au mot près : le démarrage et la
// récupération les montrent.

#include <QString>

namespace essai {

inline const QString MessageMarqueur1 = QStringLiteral(
    "Votre dernière session Maroval s'est terminee anormalement pendant l'enregistrement de "
    "votre derniere ecriture.\n\nCette derniere ecriture n'a pas ete memorisee, veuillez la "
    "re-saisir.\n\nLe reste de votre comptabilité n'a pas été affecté par cet arrêt brutal.");
inline const QString RecuperationReussie = QStringLiteral(
    "La récupération s'est effectuée correctement.\nVous pouvez maintenant continuer à "
    "travailler.");
inline const QString RecuperationImpossible = QStringLiteral(
    "Maroval ne peut récupérer votre comptabilité automatiquement.\nUtilisez le bouton "
    "Restauration.");

} // namespace essai
