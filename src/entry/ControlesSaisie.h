#pragma once
// Contrôles et gestes communs aux deux saisies (logique, débits et crédits) : dates,
// libellé, échéance, passage de l'écriture, détail d'un compte.

#include <QString>
#include <functional>

#include <vector>

class QLineEdit;
class QWidget;

namespace ui {
class Grille;
}

namespace saisie {
struct CompteOffert;
}

// Vrai quand l'échéance (JJ/MM/AAAA) tombe avant la date de saisie ou plus de trois mois
// après elle.
bool EcheanceDouteuse(const QString& echeance);

// Vrai quand l'échéance peut être gardée : plausible, ou confirmée par l'utilisateur.
bool ConfirmerEcheance(const QString& echeance);

// A la sortie d'un champ date : une date mal saisie est signalée et le champ reprend la
// main. Le masque vide est permis quand videPermis (échéance). Rend vrai si la date va.
bool ControlerChampDate(QLineEdit* champ, bool videPermis);
// A la sortie du libellé : vide, il est signalé. Rend vrai s'il est saisi.
bool ControlerChampLibelle(QLineEdit* libelle);

// Le bouton « OK » des deux saisies, une fois l'équilibre contrôlé : libellé obligatoire,
// échéance confirmée quand son champ est montré et rempli, puis le libellé posé sur toutes
// les lignes et l'écriture passée sous ce numéro. Faux si l'écriture n'est pas passée.
bool ValiderEtPasser(QLineEdit* libelle, QLineEdit* echeance, const QString& numero);

// Les comptes offerts dans une liste de choix : numéro, libellé, solde.
void AfficherComptesOfferts(ui::Grille* liste, const std::vector<saisie::CompteOffert>& comptes);
// Le numéro du compte sélectionné dans une liste de comptes ; vide sans sélection.
QString CompteSelectionne(const ui::Grille* liste);
// Vrai, après la boîte qui le dit, quand le compte est déjà une ligne de l'écriture.
bool CompteDejaPresent(const QString& numero);

// Le détail d'un compte désigné dans une liste ; sans compte, la boîte le dit et rien ne
// s'ouvre. avant est appelé juste avant l'ouverture.
bool OuvrirDetailCompte(QWidget* parent, const QString& numero,
                        const std::function<void()>& avant = {});
