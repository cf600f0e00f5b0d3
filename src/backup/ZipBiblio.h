#pragma once
// Couche mince sur libzip pour les archives de sauvegarde (.sav) : des ZIP ordinaires que
// tout outil ouvre, chaque entrée sous son seul nom de fichier, compression de niveau 9,
// ni chiffrement ni commentaire.

#include <QString>

// Ajoute le fichier NomFichier du dossier Dossier à l'archive, créée au besoin ; une
// entrée de même nom est remplacée. L'archive n'est réécrite qu'une fois complète. Un
// échec lève ErreurSauvegarde "Erreur pendant la compression.", source "Zipper()".
void Zipper(const QString& Dossier, const QString& NomFichier, const QString& Archive);

// Extrait l'entrée NomFichier (casse ignorée) dans le dossier Destination, "." désignant
// le dossier des données. Le fichier en place n'est remplacé qu'une fois l'entrée lue en
// entier et contrôlée ; l'archive est ouverte en lecture seule. Vrai si tout s'est bien passé.
// Une archive hostile est refusée sans rien écrire : une entrée au chemin absolu ou qui
// remonte par "..", un lien symbolique, une entrée plus grosse que LimiteExtraction.
bool UnZip(const QString& Archive, const QString& NomFichier, const QString& Destination);

// Taille au-delà de laquelle une extraction s'arrête : dix fois l'archive, 2 Gio au plus.
// Une base neuve se compresse déjà sept fois : en dessous de 32 Mio on ne refuse rien, pour
// ne jamais rejeter la seule sauvegarde d'un utilisateur.
quint64 LimiteExtraction(qint64 tailleArchive);
bool UnZipUnFichier(const QString& Archive, const QString& NomFichier);

// Dernier message de la bibliothèque, avec son origine (diagnostic).
QString MessageZip();

// Rend durable un renommage ou une création dans ce dossier.
bool SynchroniserDossier(const QString& dossier);
