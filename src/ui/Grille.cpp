#include "ui/Grille.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSettings>

namespace ui {

namespace {
constexpr int RoleDonneeCellule = Qt::UserRole + 1;
const QString vide = QStringLiteral("vide");
} // namespace

Grille::Grille(QWidget* parent) : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    // Les cellules ne s'ouvrent que sur demande de l'écran (clic, Entrée selon l'écran).
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSortingEnabled(false);
    // Chaque colonne garde sa largeur, la dernière comprise.
    header()->setStretchLastSection(false);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    connect(header(), &QHeaderView::sectionClicked, this, &Grille::TitreClique);
}

void Grille::FixerColonnes(const QStringList& titres) {
    setColumnCount(titres.size());
    setHeaderLabels(titres);
    colonnesTriables = QList<bool>(titres.size(), true);
}

void Grille::FixerColonneTriable(int colonne, bool triable) {
    if (colonne < 0) return;
    while (colonnesTriables.size() <= colonne)
        colonnesTriables.append(true);
    colonnesTriables[colonne] = triable;
}

void Grille::SauverLargeurs(QSettings& reglages, const QString& section) const {
    reglages.beginGroup(section);
    for (int c = 0; c < columnCount(); ++c)
        reglages.setValue(QStringLiteral("col%1").arg(c), QString::number(columnWidth(c)));
    reglages.endGroup();
}

void Grille::RestaurerLargeurs(QSettings& reglages, const QString& section) {
    reglages.beginGroup(section);
    for (int c = 0; c < columnCount(); ++c) {
        const QString valeur = reglages.value(QStringLiteral("col%1").arg(c), vide).toString();
        bool nombre = false;
        const int largeur = valeur.toInt(&nombre);
        // Une valeur illisible garde la largeur d'origine, comme "vide".
        if (valeur != vide && nombre && largeur >= 0) setColumnWidth(c, largeur);
    }
    reglages.endGroup();
}

int Grille::AjouterLigne(const QStringList& textes, const QVariant& donnee) {
    InsererLigne(topLevelItemCount(), textes, donnee);
    return topLevelItemCount() - 1;
}

void Grille::InsererLigne(int ligne, const QStringList& textes, const QVariant& donnee) {
    auto* element = new QTreeWidgetItem(textes);
    element->setFlags(element->flags() | Qt::ItemIsEditable);
    if (donnee.isValid()) element->setData(0, Qt::UserRole, donnee);
    insertTopLevelItem(qBound(0, ligne, topLevelItemCount()), element);
}

void Grille::SupprimerLigne(int ligne) {
    delete takeTopLevelItem(ligne);
}

void Grille::Vider() {
    if (EditionOuverte()) AnnulerEdition();
    clear();
}

QString Grille::Texte(int ligne, int colonne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e ? e->text(colonne) : QString();
}

void Grille::FixerTexte(int ligne, int colonne, const QString& texte) {
    if (QTreeWidgetItem* e = Element(ligne)) e->setText(colonne, texte);
}

QVariant Grille::DonneeLigne(int ligne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e ? e->data(0, Qt::UserRole) : QVariant();
}

void Grille::FixerDonneeLigne(int ligne, const QVariant& donnee) {
    if (QTreeWidgetItem* e = Element(ligne)) e->setData(0, Qt::UserRole, donnee);
}

QVariant Grille::DonneeCellule(int ligne, int colonne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e ? e->data(colonne, RoleDonneeCellule) : QVariant();
}

void Grille::FixerDonneeCellule(int ligne, int colonne, const QVariant& donnee) {
    if (QTreeWidgetItem* e = Element(ligne)) e->setData(colonne, RoleDonneeCellule, donnee);
}

int Grille::ChercherDonnee(const QVariant& donnee) const {
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->data(0, Qt::UserRole) == donnee) return i;
    return -1;
}

int Grille::ChercherTexte(int colonne, const QString& texte) const {
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->text(colonne) == texte) return i;
    return -1;
}

void Grille::FixerCouleurLigne(int ligne, const QColor& texte, const QColor& fond) {
    for (int c = 0; c < columnCount(); ++c)
        FixerCouleurCellule(ligne, c, texte, fond);
}

void Grille::FixerCouleurCellule(int ligne, int colonne, const QColor& texte, const QColor& fond) {
    QTreeWidgetItem* e = Element(ligne);
    if (!e) return;
    e->setData(colonne, Qt::ForegroundRole, texte.isValid() ? QVariant(texte) : QVariant());
    e->setData(colonne, Qt::BackgroundRole, fond.isValid() ? QVariant(fond) : QVariant());
}

QColor Grille::CouleurTexte(int ligne, int colonne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e ? e->data(colonne, Qt::ForegroundRole).value<QColor>() : QColor();
}

QColor Grille::CouleurFond(int ligne, int colonne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e ? e->data(colonne, Qt::BackgroundRole).value<QColor>() : QColor();
}

int Grille::LigneCourante() const {
    QTreeWidgetItem* e = currentItem();
    return e ? indexOfTopLevelItem(e) : -1;
}

void Grille::FixerLigneCourante(int ligne) {
    QTreeWidgetItem* e = Element(ligne);
    if (e)
        setCurrentItem(e);
    else
        setCurrentItem(nullptr);
}

QList<int> Grille::LignesSelectionnees() const {
    QList<int> lignes;
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (topLevelItem(i)->isSelected()) lignes.append(i);
    return lignes;
}

bool Grille::EstSelectionnee(int ligne) const {
    const QTreeWidgetItem* e = Element(ligne);
    return e && e->isSelected();
}

void Grille::SelectionnerLigne(int ligne, bool choisie) {
    if (QTreeWidgetItem* e = Element(ligne)) e->setSelected(choisie);
}

void Grille::FixerMultiSelection(bool multiple) {
    setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection
                              : QAbstractItemView::SingleSelection);
}

void Grille::RendreVisible(int ligne) {
    if (QTreeWidgetItem* e = Element(ligne)) scrollToItem(e);
}

void Grille::Trier(int colonne, Qt::SortOrder ordre) {
    if (colonne < 0 || colonne >= columnCount()) return;
    colonneTri = colonne;
    ordreTri = ordre;
    header()->setSortIndicatorShown(true);
    sortItems(colonne, ordre);
}

void Grille::TitreClique(int colonne) {
    if (colonne < colonnesTriables.size() && !colonnesTriables[colonne]) return;
    // Un second clic sur la même colonne inverse l'ordre.
    const Qt::SortOrder ordre = (colonne == colonneTri && ordreTri == Qt::AscendingOrder)
                                    ? Qt::DescendingOrder
                                    : Qt::AscendingOrder;
    Trier(colonne, ordre);
}

bool Grille::EditerCellule(int ligne, int colonne) {
    QTreeWidgetItem* e = Element(ligne);
    if (!e || colonne < 0 || colonne >= columnCount()) return false;
    const QModelIndex index = indexFromItem(e, colonne);
    if (enValidation || EditionOuverte()) {
        // L'éditeur en cours se ferme d'abord ; la cellule s'ouvrira ensuite.
        editionDifferee = index;
        return true;
    }
    setCurrentItem(e, colonne);
    scrollToItem(e);
    return edit(index, QAbstractItemView::AllEditTriggers, nullptr);
}

bool Grille::edit(const QModelIndex& index, EditTrigger declencheur, QEvent* evenement) {
    const bool ouvert = QTreeWidget::edit(index, declencheur, evenement);
    if (ouvert && state() == QAbstractItemView::EditingState) {
        indexEdite = index;
        editeurOuvert = indexWidget(index);
    }
    return ouvert;
}

bool Grille::EditionOuverte() const {
    return editeurOuvert != nullptr && state() == QAbstractItemView::EditingState;
}

QWidget* Grille::Editeur() const {
    return EditionOuverte() ? editeurOuvert : nullptr;
}

void Grille::commitData(QWidget* editeur) {
    auto* ligneTexte = qobject_cast<QLineEdit*>(editeur);
    if (enValidation || editeur != editeurOuvert || !indexEdite.isValid() || !ligneTexte) {
        if (!enValidation) QTreeWidget::commitData(editeur);
        return;
    }
    const int ligne = indexEdite.row();
    const int colonne = indexEdite.column();
    QString texte = ligneTexte->text();
    if (validation) {
        enValidation = true;
        const Validation reponse = validation(ligne, colonne, texte);
        enValidation = false;
        if (reponse == Validation::GarderOuvert) {
            refusee = true;
            return;
        }
    }
    if (indexEdite.isValid()) model()->setData(indexEdite, texte, Qt::EditRole);
    valideeLigne = ligne;
    valideeColonne = colonne;
    valideeTexte = texte;
    validee = true;
}

void Grille::closeEditor(QWidget* editeur, QAbstractItemDelegate::EndEditHint indice) {
    // Une boîte montrée par la validation prend le focus : l'éditeur reste ouvert jusqu'à
    // la fin de la validation, qui le fermera elle-même.
    if (enValidation && editeur == editeurOuvert) return;
    if (refusee && editeur == editeurOuvert) {
        // La validation garde la saisie : l'éditeur reste ouvert, le texte sélectionné.
        refusee = false;
        editeur->setFocus();
        if (auto* ligneTexte = qobject_cast<QLineEdit*>(editeur)) ligneTexte->selectAll();
        return;
    }
    if (editeur == editeurOuvert) {
        editeurOuvert = nullptr;
        indexEdite = QPersistentModelIndex();
    }
    QTreeWidget::closeEditor(editeur, indice);
    if (validee) {
        validee = false;
        emit celluleValidee(valideeLigne, valideeColonne, valideeTexte);
    }
    if (editionDifferee.isValid() && !EditionOuverte()) {
        const QPersistentModelIndex index = editionDifferee;
        editionDifferee = QPersistentModelIndex();
        if (index.isValid()) EditerCellule(index.row(), index.column());
    }
}

bool Grille::ValiderEdition() {
    QWidget* editeur = Editeur();
    if (!editeur) return false;
    commitData(editeur);
    closeEditor(editeur, QAbstractItemDelegate::SubmitModelCache);
    return editeurOuvert != editeur || !EditionOuverte();
}

void Grille::AnnulerEdition() {
    QWidget* editeur = Editeur();
    if (!editeur) return;
    editionDifferee = QPersistentModelIndex();
    closeEditor(editeur, QAbstractItemDelegate::RevertModelCache);
}

void Grille::keyPressEvent(QKeyEvent* evenement) {
    emit touche(evenement->key());
    // Entrée appartient à la grille (ouvrir une cellule, choisir une ligne) : elle ne
    // remonte pas à l'écran, où elle actionnerait un bouton.
    if (evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter) {
        evenement->accept();
        return;
    }
    QTreeWidget::keyPressEvent(evenement);
}

} // namespace ui
