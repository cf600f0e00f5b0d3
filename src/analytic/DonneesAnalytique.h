#pragma once
// Porte des données de la comptabilité analytique : les sections de l'exercice, l'affectation
// des lignes de charges et de produits (SectionEcr : 0 non affectée, 1 à 98 une section, 99 à
// ventiler), les ventilations d'une ligne sur plusieurs sections, et les sommes par section.
// Chaque écriture passe par une seule routine, en une seule validation.

#include "base/Montant.h"
#include "store/Enregistrements.h"

#include <QSet>
#include <QString>
#include <vector>

namespace analytique {

inline constexpr int NonAffectee = 0, AVentiler = 99;

struct Section {
    int numero = 0;
    QString nom;
};

// Les sections 00 « Non affecté » et 99 « A ventiler » de l'exercice, créées si elles
// manquent.
void AssurerSectionsReservees(const QString& cle);
// Ce qu'on dit quand l'exercice a moins de deux sections à soi.
QString TexteSectionsManquantes();
// Les sections par numéro ; sans 00 ni 99 si avecReservees est faux.
std::vector<Section> Sections(const QString& cle, bool avecReservees);
bool SectionExiste(const QString& cle, int numero, QString* nom = nullptr);
void CreerSection(const QString& cle, int numero, const QString& nom);
void RenommerSection(const QString& cle, int numero, const QString& nom);
void SupprimerSection(const QString& cle, int numero);
// Lignes de l'exercice affectées à la section ; ventilations qui lui donnent une part.
int LignesDeLaSection(const QString& cle, int numero);
int VentilationsDeLaSection(const QString& cle, int numero);

struct Compte {
    QString numero, libelle;
    Montant solde;
};
// Comptes de charges (E2) ou de produits (R2) au solde non nul, hors 699 et 799.
std::vector<Compte> Comptes(const QString& cle, bool charges);
// Un compte est à gérer quand une de ses lignes n'est affectée à aucune section.
bool CompteAGerer(const QString& cle, const QString& numCpt);

enum class Filtre { AGerer, AVentiler, Toutes };
struct Ligne {
    double numero = 0;
    QString dateEcr, libelle; // date AAAAMMJJ
    Montant montant;
    int section = 0;
};
std::vector<Ligne> Lignes(const QString& cle, const QString& numCpt, Filtre filtre);

// Donne la section à la ligne ; une ligne qui quitte 99 perd sa ventilation.
void AffecterLigne(const QString& cle, double numEcr, int section);
// Les parts de chaque section (1 à 98) d'une ligne à ventiler, remplacées en entier.
void EnregistrerVentilation(const QString& cle, double numEcr,
                            const std::array<Montant, 99>& parts);
// Toutes les affectations des charges (E2) ou des produits (R2) annulées, ventilations
// comprises.
void AnnulerAffectations(const QString& cle, const QString& erEcr);

// Les sommes d'un compte pour la consultation des sections.
struct Sommes {
    QString numero, libelle;
    Montant total, nonAffecte, autres, choisies;
};
std::vector<Sommes> Consulter(const QString& cle, bool charges, const QSet<int>& choisies);

} // namespace analytique
