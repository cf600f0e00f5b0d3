#pragma once
// Restauration d'une archive de sauvegarde sur toute la base : le chemin commun de l'écran
// de sauvegarde, de la ligne de commande et de la création de société. Rien n'est remplacé
// tant que la base de l'archive n'a pas été extraite à part et reconnue saine.

#include <QString>

// Vrai quand la ligne de commande désigne une archive : elle se termine par ".SAV" ou
// ".SAV"" (guillemet fermant), casse ignorée.
bool EstArchiveLigneCommande(const QString& ligne);

// Fin commune d'une restauration : ferme la base, met en place le maroval.mdb de l'archive,
// remet le marqueur d'arrêt à "0", le dit et termine le programme. En cas d'échec, la base
// en place est rouverte telle quelle, la boîte d'échec est montrée, et la fonction rend faux.
bool RestaurerArchive(const QString& fichier);

// Le remplacement seul, sans boîte, base fermée : extraction dans un dossier temporaire,
// contrôle, puis un seul renommage. Faux (et base en place intacte) si un pas échoue.
bool RemplacerBaseDepuisArchive(const QString& fichier);

// Contrôle d'une base candidate : un fichier SQLite lisible, intègre, dont les tables et
// leurs colonnes sont exactement celles du schéma. Rend la raison du refus, vide si saine.
QString ControlerBaseRestauree(const QString& chemin);

// Textes des boîtes de fin de restauration.
QString TexteEchecRestauration();
QString TexteRestaurationTerminee();
