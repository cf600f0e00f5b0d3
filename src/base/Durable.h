#pragma once
// Écritures durables : un renommage n'est sûr qu'une fois le dossier lui-même synchronisé.

#include <QString>

// fsync du dossier ; faux s'il ne peut pas être ouvert ou synchronisé.
bool SynchroniserDossier(const QString& dossier);
