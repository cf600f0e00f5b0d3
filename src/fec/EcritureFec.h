#pragma once
// Le fichier des écritures comptables (FEC) d'un exercice, dans la forme que l'outil de
// contrôle de l'administration lit : dix-huit champs séparés par une tabulation, lignes
// finies par CR LF (sans fin de ligne après la dernière), texte UTF-8 sans marque d'ordre,
// dates AAAAMMJJ, montants à virgule sans signe ni séparateur de milliers. Les à-nouveaux
// d'abord (journal AN), puis chaque écriture dans l'ordre de sa validation.

#include "base/Montant.h"

#include <QByteArray>
#include <QString>

namespace fec {

struct Totaux {
    int ecritures = 0, lignes = 0;
    Montant debit, credit;
};

// Le fichier de l'exercice de cette clé ; vide et erreur en français si l'exercice n'existe
// pas ou si ses à-nouveaux ne s'équilibrent pas.
QByteArray FichierFec(const QString& cle, Totaux* totaux, QString* erreur);

// SIREN + "FEC" + date de clôture AAAAMMJJ + ".txt".
QString NomFichier(const QString& siren, const QString& dateFin);

// Neuf chiffres dont la clé de Luhn est juste.
bool SirenValide(const QString& siren);
// Le SIREN retenu pour une société (vide si aucun), et son enregistrement.
QString LireSiren(int numSoc);
void EnregistrerSiren(int numSoc, const QString& siren);

// Libellé d'un journal du fichier : V, A, T, D, I, AN.
QString LibelleJournal(const QString& code);

} // namespace fec
