#pragma once
// La grille des écrans de listes : colonnes à titres, lignes avec donnée de ligne et
// données de cellule, tri par un clic sur un titre, couleurs, et saisie dans une cellule
// par l'éditeur standard de la vue, avec une validation qui peut refuser ou corriger.
// Une vue sur un modèle qui range les lignes à plat : des dizaines de milliers de lignes
// se remplissent et se peignent sans un objet par ligne.

#include "ui/ModeleGrille.h"

#include <QColor>
#include <QPersistentModelIndex>
#include <QStringList>
#include <QTreeView>
#include <QVariant>
#include <functional>

class QSettings;

namespace ui {

class Grille : public QTreeView {
    Q_OBJECT
public:
    // Réponse de la validation d'une cellule : écrire le texte (éventuellement corrigé)
    // et fermer l'éditeur, ou laisser l'éditeur ouvert pour une nouvelle saisie.
    enum class Validation { Accepter, GarderOuvert };
    using Validateur = std::function<Validation(int ligne, int colonne, QString& texte)>;

    explicit Grille(QWidget* parent = nullptr);

    // Colonnes
    void FixerColonnes(const QStringList& titres);
    int NombreColonnes() const { return modele->NombreColonnes(); }
    QString Titre(int colonne) const {
        return modele->headerData(colonne, Qt::Horizontal, Qt::DisplayRole).toString();
    }
    // Rectangle de la cellule dans la zone visible, pour un clic.
    QRect RectangleCellule(int ligne, int colonne) const;
    int LargeurColonne(int colonne) const { return columnWidth(colonne); }
    void FixerLargeurColonne(int colonne, int largeur) { setColumnWidth(colonne, largeur); }
    // Un clic sur le titre d'une colonne non triable ne change pas l'ordre.
    void FixerColonneTriable(int colonne, bool triable);
    // Largeurs gardées dans les réglages : clés "col0", "col1"... du groupe ; "vide" garde
    // la largeur d'origine.
    void SauverLargeurs(QSettings& reglages, const QString& section) const;
    void RestaurerLargeurs(QSettings& reglages, const QString& section);

    // Alignement des textes d'une colonne (les montants à droite).
    void FixerAlignementColonne(int colonne, Qt::Alignment alignement);
    // Une colonne de montants ou de dates se trie sur leur valeur, non sur le texte.
    void FixerTriMontants(int colonne);
    void FixerTriDates(int colonne);
    // Valeur d'un montant affiché ("-1 234,56 E") ; d'une date JJ/MM/AAAA (AAAAMMJJ).
    // Cellule vide ou illisible : avant toutes les autres.
    static double CleMontant(QStringView texte);
    static double CleDate(QStringView texte);

    // Lignes
    // Un remplissage de milliers de lignes se fait entre ces deux appels : la vue les
    // apprend d'un coup à la fin. Les numéros de ligne rendus restent valables.
    void DebutRemplissage() { modele->DebutRemplissage(); }
    void FinRemplissage() { modele->FinRemplissage(); }
    int AjouterLigne(const QStringList& textes, const QVariant& donnee = QVariant());
    void InsererLigne(int ligne, const QStringList& textes, const QVariant& donnee = QVariant());
    void SupprimerLigne(int ligne);
    void Vider();
    int NombreLignes() const { return modele->NombreLignes(); }

    QString Texte(int ligne, int colonne) const;
    void FixerTexte(int ligne, int colonne, const QString& texte);
    QVariant DonneeLigne(int ligne) const;
    void FixerDonneeLigne(int ligne, const QVariant& donnee);
    QVariant DonneeCellule(int ligne, int colonne) const;
    void FixerDonneeCellule(int ligne, int colonne, const QVariant& donnee);
    // Première ligne (dans l'ordre affiché) portant cette donnée, sinon -1.
    int ChercherDonnee(const QVariant& donnee) const;
    // Première ligne dont la cellule a exactement ce texte, sinon -1.
    int ChercherTexte(int colonne, const QString& texte) const;

    // Couleurs du texte et du fond, d'une ligne entière ou d'une cellule.
    void FixerCouleurLigne(int ligne, const QColor& texte, const QColor& fond = QColor());
    void FixerCouleurCellule(int ligne, int colonne, const QColor& texte,
                             const QColor& fond = QColor());
    QColor CouleurTexte(int ligne, int colonne) const;
    QColor CouleurFond(int ligne, int colonne) const;

    // Sélection et ligne courante (-1 sans ligne).
    int LigneCourante() const;
    // La ligne courante si elle est sélectionnée (choisie par l'utilisateur), sinon -1 : la
    // vue fait d'elle-même de la première ligne la courante quand elle prend le focus.
    int LigneChoisie() const;
    void FixerLigneCourante(int ligne);
    QList<int> LignesSelectionnees() const;
    bool EstSelectionnee(int ligne) const;
    void SelectionnerLigne(int ligne, bool choisie);
    void FixerMultiSelection(bool multiple);
    void RendreVisible(int ligne);

    // Tri
    void Trier(int colonne, Qt::SortOrder ordre = Qt::AscendingOrder);

    // Saisie dans les cellules
    void FixerValidation(Validateur validateur) { validation = std::move(validateur); }
    // Ouvre l'éditeur de la cellule ; pendant une validation, l'ouverture attend la fin de
    // celle-ci (passage d'une cellule à l'autre).
    bool EditerCellule(int ligne, int colonne);
    bool EditionOuverte() const;
    int LigneEditee() const { return EditionOuverte() ? indexEdite.row() : -1; }
    int ColonneEditee() const { return EditionOuverte() ? indexEdite.column() : -1; }
    // L'éditeur ouvert (nullptr sinon) : les tests y tapent.
    QWidget* Editeur() const;
    // Valide l'éditeur ouvert comme la touche Entrée ; faux si la validation le garde ouvert.
    bool ValiderEdition();
    // Ferme l'éditeur sans rien écrire (touche Echap).
    void AnnulerEdition();

    ModeleGrille* Modele() const { return modele; }

signals:
    // Clic et double clic sur une cellule, changement de la ligne courante (-1 : aucune).
    void ligneCliquee(int ligne, int colonne);
    void ligneDoubleCliquee(int ligne, int colonne);
    void ligneCouranteChangee(int ligne);
    void selectionChangee();
    // Après l'écriture validée d'une cellule.
    void celluleValidee(int ligne, int colonne, const QString& texte);
    // Touche reçue par la grille hors édition (Entrée, Suppr, Echap...).
    void touche(int cle);

protected:
    bool edit(const QModelIndex& index, EditTrigger declencheur, QEvent* evenement) override;
    void commitData(QWidget* editeur) override;
    void closeEditor(QWidget* editeur, QAbstractItemDelegate::EndEditHint indice) override;
    void keyPressEvent(QKeyEvent* evenement) override;

private:
    QModelIndex Index(int ligne, int colonne = 0) const;
    void TitreClique(int colonne);

    ModeleGrille* modele;
    Validateur validation;
    QPersistentModelIndex indexEdite;
    QWidget* editeurOuvert = nullptr;
    bool enValidation = false;
    bool refusee = false;
    bool validee = false;
    int valideeLigne = -1;
    int valideeColonne = -1;
    QString valideeTexte;
    QPersistentModelIndex editionDifferee;
    QList<bool> colonnesTriables;
    int colonneTri = -1;
    Qt::SortOrder ordreTri = Qt::AscendingOrder;
};

} // namespace ui
