#pragma once
// Écritures durables : un renommage n'est sûr qu'une fois le dossier lui-même synchronisé.

#include <QString>

// fsync du dossier ; faux s'il ne peut pas être ouvert ou synchronisé.
bool SynchroniserDossier(const QString& dossier);

// Essaie d'écrire vraiment dans le dossier (un petit fichier créé, écrit, synchronisé puis
// retiré) : les droits affichés ne disent rien quand le programme tourne en root, ni pour
// un disque plein ou monté en lecture seule. Rend la raison du système, vide si tout va.
QString EssayerEcriture(const QString& dossier);

// La raison d'un échec du système en français pour les cas qu'un utilisateur rencontre
// (disque plein, protégé, absent...), sinon le texte du système.
QString RaisonSysteme(int numero);

// Écrit le fichier en entier ou pas du tout (nom temporaire, synchronisation, renommage,
// synchronisation du dossier) : en cas d'échec rien de partiel ne reste et l'ancien fichier
// de ce nom est intact.
bool EcrireFichierEntier(const QString& chemin, const QByteArray& contenu);
