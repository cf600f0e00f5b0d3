#include "ui/Grille.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSettings>
#include <limits>

namespace ui {

namespace {
const QString vide = QStringLiteral("vide");
} // namespace

Grille::Grille(QWidget* parent) : QTreeView(parent), modele(new ModeleGrille(this)) {
    setModel(modele);
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
    connect(this, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& i) { emit ligneCliquee(i.row(), i.column()); });
    connect(this, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& i) { emit ligneDoubleCliquee(i.row(), i.column()); });
    connect(
        selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this](const QModelIndex& i) { emit ligneCouranteChangee(i.isValid() ? i.row() : -1); });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &Grille::selectionChangee);
}

QModelIndex Grille::Index(int ligne, int colonne) const {
    return modele->index(ligne, colonne);
}

QRect Grille::RectangleCellule(int ligne, int colonne) const {
    return visualRect(Index(ligne, colonne));
}

void Grille::FixerColonnes(const QStringList& titres) {
    modele->FixerTitres(titres);
    colonnesTriables = QList<bool>(titres.size(), true);
}

void Grille::FixerAlignementColonne(int colonne, Qt::Alignment alignement) {
    modele->FixerAlignement(colonne, alignement);
}

void Grille::FixerTriMontants(int colonne) {
    modele->FixerCleTri(colonne, &Grille::CleMontant);
}

void Grille::FixerTriDates(int colonne) {
    modele->FixerCleTri(colonne, &Grille::CleDate);
}

double Grille::CleMontant(QStringView texte) {
    // Chiffres, une virgule ou un point décimal, un signe ; le reste (espaces des milliers,
    // symbole de la monnaie) est sauté.
    double valeur = 0, echelle = 0;
    bool chiffre = false, negatif = false;
    for (const QChar c : texte) {
        if (c.isDigit()) {
            chiffre = true;
            const int d = c.digitValue();
            if (echelle > 0) {
                valeur += d * echelle;
                echelle /= 10;
            } else {
                valeur = valeur * 10 + d;
            }
        } else if ((c == u',' || c == u'.') && echelle == 0) {
            echelle = 0.1;
        } else if (c == u'-' && !chiffre) {
            negatif = true;
        }
    }
    if (!chiffre) return -std::numeric_limits<double>::infinity();
    return negatif ? -valeur : valeur;
}

double Grille::CleDate(QStringView texte) {
    if (texte.size() != 10 || texte[2] != u'/' || texte[5] != u'/')
        return -std::numeric_limits<double>::infinity();
    bool j = false, m = false, a = false;
    const int jour = texte.mid(0, 2).toInt(&j), mois = texte.mid(3, 2).toInt(&m),
              annee = texte.mid(6, 4).toInt(&a);
    if (!j || !m || !a) return -std::numeric_limits<double>::infinity();
    return annee * 10000.0 + mois * 100 + jour;
}

void Grille::FixerColonneTriable(int colonne, bool triable) {
    if (colonne < 0) return;
    while (colonnesTriables.size() <= colonne)
        colonnesTriables.append(true);
    colonnesTriables[colonne] = triable;
}

void Grille::SauverLargeurs(QSettings& reglages, const QString& section) const {
    reglages.beginGroup(section);
    for (int c = 0; c < NombreColonnes(); ++c)
        reglages.setValue(QStringLiteral("col%1").arg(c), QString::number(columnWidth(c)));
    reglages.endGroup();
}

void Grille::RestaurerLargeurs(QSettings& reglages, const QString& section) {
    reglages.beginGroup(section);
    for (int c = 0; c < NombreColonnes(); ++c) {
        const QString valeur = reglages.value(QStringLiteral("col%1").arg(c), vide).toString();
        bool nombre = false;
        const int largeur = valeur.toInt(&nombre);
        // Une valeur illisible garde la largeur d'origine, comme "vide".
        if (valeur != vide && nombre && largeur >= 0) setColumnWidth(c, largeur);
    }
    reglages.endGroup();
}

int Grille::AjouterLigne(const QStringList& textes, const QVariant& donnee) {
    return modele->Ajouter(textes, donnee);
}

void Grille::InsererLigne(int ligne, const QStringList& textes, const QVariant& donnee) {
    modele->Inserer(ligne, textes, donnee);
}

void Grille::SupprimerLigne(int ligne) {
    modele->Supprimer(ligne);
}

void Grille::Vider() {
    if (EditionOuverte()) AnnulerEdition();
    modele->Vider();
}

QString Grille::Texte(int ligne, int colonne) const {
    return modele->Texte(ligne, colonne);
}

void Grille::FixerTexte(int ligne, int colonne, const QString& texte) {
    modele->FixerTexte(ligne, colonne, texte);
}

QVariant Grille::DonneeLigne(int ligne) const {
    return modele->DonneeLigne(ligne);
}

void Grille::FixerDonneeLigne(int ligne, const QVariant& donnee) {
    modele->FixerDonneeLigne(ligne, donnee);
}

QVariant Grille::DonneeCellule(int ligne, int colonne) const {
    return modele->DonneeCellule(ligne, colonne);
}

void Grille::FixerDonneeCellule(int ligne, int colonne, const QVariant& donnee) {
    modele->FixerDonneeCellule(ligne, colonne, donnee);
}

int Grille::ChercherDonnee(const QVariant& donnee) const {
    for (int i = 0; i < NombreLignes(); ++i)
        if (modele->DonneeLigne(i) == donnee) return i;
    return -1;
}

int Grille::ChercherTexte(int colonne, const QString& texte) const {
    for (int i = 0; i < NombreLignes(); ++i)
        if (modele->Texte(i, colonne) == texte) return i;
    return -1;
}

void Grille::FixerCouleurLigne(int ligne, const QColor& texte, const QColor& fond) {
    for (int c = 0; c < NombreColonnes(); ++c)
        FixerCouleurCellule(ligne, c, texte, fond);
}

void Grille::FixerCouleurCellule(int ligne, int colonne, const QColor& texte, const QColor& fond) {
    modele->FixerCouleurs(ligne, colonne, texte, fond);
}

QColor Grille::CouleurTexte(int ligne, int colonne) const {
    return modele->CouleurTexte(ligne, colonne);
}

QColor Grille::CouleurFond(int ligne, int colonne) const {
    return modele->CouleurFond(ligne, colonne);
}

int Grille::LigneCourante() const {
    const QModelIndex i = currentIndex();
    return i.isValid() ? i.row() : -1;
}

int Grille::LigneChoisie() const {
    const int ligne = LigneCourante();
    return EstSelectionnee(ligne) ? ligne : -1;
}

void Grille::FixerLigneCourante(int ligne) {
    modele->FinRemplissage();
    setCurrentIndex(Index(ligne));
}

QList<int> Grille::LignesSelectionnees() const {
    QList<int> lignes;
    for (const QModelIndex& i : selectionModel()->selectedRows())
        lignes.append(i.row());
    std::sort(lignes.begin(), lignes.end());
    return lignes;
}

bool Grille::EstSelectionnee(int ligne) const {
    return ligne >= 0 && ligne < modele->rowCount() &&
           selectionModel()->isRowSelected(ligne, QModelIndex());
}

void Grille::SelectionnerLigne(int ligne, bool choisie) {
    const QModelIndex i = Index(ligne);
    if (!i.isValid()) return;
    selectionModel()->select(
        i, (choisie ? QItemSelectionModel::Select : QItemSelectionModel::Deselect) |
               QItemSelectionModel::Rows);
}

void Grille::FixerMultiSelection(bool multiple) {
    setSelectionMode(multiple ? QAbstractItemView::ExtendedSelection
                              : QAbstractItemView::SingleSelection);
}

void Grille::RendreVisible(int ligne) {
    const QModelIndex i = Index(ligne);
    if (i.isValid()) scrollTo(i);
}

void Grille::Trier(int colonne, Qt::SortOrder ordre) {
    if (colonne < 0 || colonne >= NombreColonnes()) return;
    colonneTri = colonne;
    ordreTri = ordre;
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(colonne, ordre);
    modele->Trier(colonne, ordre);
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
    modele->FinRemplissage();
    const QModelIndex index = Index(ligne, colonne);
    if (!index.isValid()) return false;
    if (enValidation || EditionOuverte()) {
        // L'éditeur en cours se ferme d'abord ; la cellule s'ouvrira ensuite.
        editionDifferee = index;
        return true;
    }
    setCurrentIndex(index);
    scrollTo(index);
    return edit(index, QAbstractItemView::AllEditTriggers, nullptr);
}

bool Grille::edit(const QModelIndex& index, EditTrigger declencheur, QEvent* evenement) {
    const bool ouvert = QTreeView::edit(index, declencheur, evenement);
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
        if (!enValidation) QTreeView::commitData(editeur);
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
    QTreeView::closeEditor(editeur, indice);
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
    QTreeView::keyPressEvent(evenement);
}

} // namespace ui
