#pragma once
// Une routine par table et par opération. Les clés sont la clé d'exercice de 6 caractères
// et le numéro en texte ; une routine ne les modifie pas.

#include "store/Enregistrements.h"

#include <QString>

// Clé d'exercice : numéro de société sur deux chiffres suivi de l'année sur quatre.
QString CleExercice(int numSoc, int annee);
// Clé réservée aux images d'une écriture en cours.
inline const QString CleImages = QStringLiteral("000000");

// Société : sans ligne trouvée, l'enregistrement reste tel qu'il était (réponse non).
bool LireSociete(int numSoc, table::Societe& r);
int AjouterSociete(table::Societe& r);
bool MajSociete(int numSoc, table::Societe& r);

bool LireSection(const QString& cle, int numero, table::Section& r);
void AjouterSection(table::Section& r);

// Compte : un numéro absent laisse l'enregistrement intact.
bool LireCompte(const QString& cle, const QString& numero, table::Compte& r);
void AjouterCompte(table::Compte& r);
bool MajCompte(const QString& cle, const QString& numero, table::Compte& r);

bool LireVentilation(const QString& cle, double numero, table::Ventilation& r);
void AjouterVentilation(table::Ventilation& r);
bool MajVentilation(const QString& cle, double numero, table::Ventilation& r);

bool LireEcriture(const QString& cle, double numero, table::Ecriture& r);
void AjouterEcriture(table::Ecriture& r);

// Dernière ligne de wSaisie dont wFin est faux.
bool LireDerniereSaisie(table::Saisie& r);
void AjouterSaisie(table::Saisie& r);

bool LireBudget(const QString& cle, const QString& numero, table::Budget& r);
void AjouterBudget(table::Budget& r);
bool MajBudget(const QString& cle, const QString& numero, table::Budget& r);

bool LireWbilan(int clef, table::Wbilan& r);
void AjouterWbilan(table::Wbilan& r);
bool MajWbilan(int clef, table::Wbilan& r);

bool LireConstante(const QString& cle, table::Constante& r);
void AjouterConstante(table::Constante& r);
bool MajConstante(const QString& cle, table::Constante& r);

// Plage de numérotation qui couvre le numéro (comparaison de textes) ; un numéro que
// rien ne couvre rend un enregistrement vide (ERCPT vide).
table::Filtre LireFiltre(const QString& numero);

// Nombre de lignes d'une table (Societe, Constante, Ecriture...).
int CompterLignes(const char* table);
// JourCent ne garde rien d'une exécution à l'autre : vidée au démarrage.
void ViderJourCent();
