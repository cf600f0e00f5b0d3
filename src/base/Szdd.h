#pragma once
// Le format compressé des anciennes disquettes (« SZDD », celui de COMPRESS et d'EXPAND) :
// en-tête de quatorze octets (signature, mode 'A', caractère remplacé du nom, taille d'origine
// sur quatre octets), puis un LZSS à fenêtre de 4 096 octets remplie d'espaces au départ.
// Compresseur et décompresseur à nous ; le décompresseur ne lit ni n'écrit jamais hors de
// ses tampons, quel que soit le fichier donné.

#include <QByteArray>
#include <QString>

// Les données compressées avec leur en-tête (vide au-delà de 4 Go, que l'en-tête ne peut pas
// dire) ; caractereRemplace : la dernière lettre du nom
// d'origine (le 'b' de « sauve.mdb » devenu « sauve.md_ »), 0 si on ne la donne pas.
QByteArray CompresserSzdd(const QByteArray& donnees, char caractereRemplace = 0);

// Décompresse ; faux (erreur en français) pour un fichier qui n'a pas l'en-tête, qui est
// tronqué, ou dont la taille annoncée dépasse limite octets.
bool DecompresserSzdd(const QByteArray& compresse, QByteArray& donnees, QString* erreur = nullptr,
                      qint64 limite = qint64(2) * 1024 * 1024 * 1024);
