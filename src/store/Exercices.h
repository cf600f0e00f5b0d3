#pragma once
// Sociétés et exercices, sans écran : listes, état, suppression, dates du premier exercice.

#include <QList>
#include <QString>
#include <cstdint>

struct SocieteListe {
    int numero = 0;
    QString nom;
};
// Les sociétés dans l'ordre de la table.
QList<SocieteListe> LireSocietes();
int NombreSocietes();
// Retire la ligne de la société (ses exercices sont retirés à part).
void RetirerSociete(int numSoc);
// Compteur des numéros de société : relu avant une création qui peut être défaite, remis
// ensuite pour que la base redevienne exactement ce qu'elle était.
std::int64_t CompteurSocietes();
void RemettreCompteurSocietes(std::int64_t valeur);

struct ExerciceListe {
    int annee = 0;
    bool clos = false;
};
// Les exercices d'une société, du plus récent au plus ancien.
QList<ExerciceListe> LireExercices(int numSoc);

// Lit le nombre d'écritures et la clôture de l'exercice ; faux si l'exercice n'existe pas
// (les valeurs restent alors à 0 et faux).
bool LireEtatExercice(int numSoc, int exercice, double& lastNumEcrit, bool& exerciceClos);

// Supprime l'exercice et tout ce qui s'y rattache ; le plan de l'exercice suivant pourra
// être refait depuis l'exercice précédent.
void SupprimerExercice(int numSoc, int exercice);

// Dernier jour du premier exercice commençant le jour j du mois m de l'année a, en AAAAMMJJ :
// le dernier jour du mois qui précède m, un an plus tard (ou le 31/12 de a pour un 1er janvier).
QString CalculDateFin(int jour, int mois, int annee);
// Le début tel qu'il est rangé : AAAAMMJJ sans contrôle du jour.
QString CalculDateDebut(int jour, int mois, int annee);
