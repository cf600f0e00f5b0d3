#pragma once
// Tenue du plan comptable d'un exercice : suppression d'un compte, comptes que tout plan
// doit avoir, et le contrôle des numéros tapés par l'utilisateur.

#include <QString>

// Valeur numérique d'un numéro écrite sans blanc ni zéro de tête : "00401" donne "401",
// "41DUPONT" donne "41", un texte sans chiffre "0".
QString ValeurTexte(const QString& numero);

// Un numéro de compte général se range de "100" à "799" (en texte) et ne tombe pas dans
// la plage de "699" à "69999999", gardée aux comptes de résultat. n : ValeurTexte du numéro.
bool NumeroDansLesPlages(const QString& n);

// Faux pour 400, 410, 699 et 799, pour un compte absent ou déjà mouvementé (ouverture,
// débit ou crédit) ; un compte de charge ou de produit qui porte un budget est refusé avec
// une boîte, les autres refus sont muets.
bool CompteSupprimable(const QString& cle, const QString& numero);
// Retire le compte, et sa ligne de budget pour un numéro de 600 et au-delà.
void SupprimerCompte(const QString& cle, const QString& numero);

// Les quatre comptes que tout plan porte : collectifs des fournisseurs et des clients,
// comptes du résultat. Créés s'ils manquent, dans cet ordre.
void AssurerComptesFixes(const QString& cle);
