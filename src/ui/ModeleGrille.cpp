#include "ui/ModeleGrille.h"

#include <algorithm>

namespace ui {

ModeleGrille::ModeleGrille(QObject* parent) : QAbstractTableModel(parent) {}

void ModeleGrille::FixerTitres(const QStringList& nouveaux) {
    beginResetModel();
    titres = nouveaux;
    tampon.clear();
    cellules.clear();
    donnees.clear();
    ordre.clear();
    attente.clear();
    donneesCellules.clear();
    couleursTexte.clear();
    couleursFond.clear();
    alignements.assign(titres.size(), Qt::AlignLeft | Qt::AlignVCenter);
    cles.assign(titres.size(), CleTri());
    endResetModel();
}

int ModeleGrille::Rangee(int ligne) const {
    if (ligne < 0) return -1;
    const auto n = static_cast<int>(ordre.size());
    if (ligne < n) return ordre[ligne];
    if (ligne - n < static_cast<int>(attente.size())) return attente[ligne - n];
    return -1;
}

int ModeleGrille::Ranger(const QStringList& textes, const QVariant& donnee) {
    const int rangee = static_cast<int>(donnees.size());
    for (int c = 0; c < NombreColonnes(); ++c) {
        const QString t = c < textes.size() ? textes[c] : QString();
        cellules.push_back({static_cast<qint32>(tampon.size()), static_cast<qint32>(t.size())});
        tampon += t;
    }
    donnees.push_back(donnee);
    return rangee;
}

QString ModeleGrille::TexteRange(int rangee, int colonne) const {
    const Cellule& c = cellules[static_cast<std::size_t>(rangee) * titres.size() + colonne];
    return tampon.mid(c.debut, c.taille);
}

int ModeleGrille::Ajouter(const QStringList& textes, const QVariant& donnee) {
    if (remplissage > 0) {
        attente.push_back(Ranger(textes, donnee));
        return NombreLignes() - 1;
    }
    const int ligne = static_cast<int>(ordre.size());
    beginInsertRows(QModelIndex(), ligne, ligne);
    ordre.push_back(Ranger(textes, donnee));
    endInsertRows();
    return ligne;
}

void ModeleGrille::Inserer(int ligne, const QStringList& textes, const QVariant& donnee) {
    FinRemplissage();
    ligne = std::clamp(ligne, 0, static_cast<int>(ordre.size()));
    beginInsertRows(QModelIndex(), ligne, ligne);
    ordre.insert(ordre.begin() + ligne, Ranger(textes, donnee));
    endInsertRows();
}

void ModeleGrille::Supprimer(int ligne) {
    FinRemplissage();
    if (ligne < 0 || ligne >= static_cast<int>(ordre.size())) return;
    // La ligne rangée reste dans le tampon jusqu'au prochain Vider : rien ne se décale.
    beginRemoveRows(QModelIndex(), ligne, ligne);
    ordre.erase(ordre.begin() + ligne);
    endRemoveRows();
}

void ModeleGrille::Vider() {
    beginResetModel();
    tampon.clear();
    tampon.squeeze();
    cellules.clear();
    cellules.shrink_to_fit();
    donnees.clear();
    donnees.shrink_to_fit();
    ordre.clear();
    ordre.shrink_to_fit();
    attente.clear();
    remplissage = 0;
    donneesCellules.clear();
    couleursTexte.clear();
    couleursFond.clear();
    endResetModel();
}

void ModeleGrille::DebutRemplissage() {
    ++remplissage;
}

void ModeleGrille::FinRemplissage() {
    if (remplissage > 0) --remplissage;
    if (remplissage > 0 || attente.empty()) return;
    const int debut = static_cast<int>(ordre.size());
    // La vue apprend toutes les lignes d'un coup.
    beginInsertRows(QModelIndex(), debut, debut + static_cast<int>(attente.size()) - 1);
    ordre.insert(ordre.end(), attente.begin(), attente.end());
    attente.clear();
    endInsertRows();
}

QString ModeleGrille::Texte(int ligne, int colonne) const {
    const int r = Rangee(ligne);
    if (r < 0 || colonne < 0 || colonne >= NombreColonnes()) return {};
    return TexteRange(r, colonne);
}

void ModeleGrille::FixerTexte(int ligne, int colonne, const QString& texte) {
    const int r = Rangee(ligne);
    if (r < 0 || colonne < 0 || colonne >= NombreColonnes()) return;
    Cellule& c = cellules[static_cast<std::size_t>(r) * titres.size() + colonne];
    if (texte.size() <= c.taille) {
        // Un texte plus court se range à la place de l'ancien.
        tampon.replace(c.debut, texte.size(), texte);
    } else {
        c.debut = static_cast<qint32>(tampon.size());
        tampon += texte;
    }
    c.taille = static_cast<qint32>(texte.size());
    if (ligne < static_cast<int>(ordre.size()))
        emit dataChanged(index(ligne, colonne), index(ligne, colonne), {Qt::DisplayRole});
}

QVariant ModeleGrille::DonneeLigne(int ligne) const {
    const int r = Rangee(ligne);
    return r < 0 ? QVariant() : donnees[r];
}

void ModeleGrille::FixerDonneeLigne(int ligne, const QVariant& donnee) {
    const int r = Rangee(ligne);
    if (r >= 0) donnees[r] = donnee;
}

QVariant ModeleGrille::DonneeCellule(int ligne, int colonne) const {
    const int r = Rangee(ligne);
    return r < 0 ? QVariant() : donneesCellules.value(CleCellule(r, colonne));
}

void ModeleGrille::FixerDonneeCellule(int ligne, int colonne, const QVariant& donnee) {
    const int r = Rangee(ligne);
    if (r < 0) return;
    if (donnee.isValid())
        donneesCellules.insert(CleCellule(r, colonne), donnee);
    else
        donneesCellules.remove(CleCellule(r, colonne));
}

QColor ModeleGrille::CouleurTexte(int ligne, int colonne) const {
    const int r = Rangee(ligne);
    return r < 0 ? QColor() : couleursTexte.value(CleCellule(r, colonne));
}

QColor ModeleGrille::CouleurFond(int ligne, int colonne) const {
    const int r = Rangee(ligne);
    return r < 0 ? QColor() : couleursFond.value(CleCellule(r, colonne));
}

void ModeleGrille::FixerCouleurs(int ligne, int colonne, const QColor& texte, const QColor& fond) {
    const int r = Rangee(ligne);
    if (r < 0 || colonne < 0 || colonne >= NombreColonnes()) return;
    const qint64 cle = CleCellule(r, colonne);
    if (texte.isValid())
        couleursTexte.insert(cle, texte);
    else
        couleursTexte.remove(cle);
    if (fond.isValid())
        couleursFond.insert(cle, fond);
    else
        couleursFond.remove(cle);
    if (ligne < static_cast<int>(ordre.size()))
        emit dataChanged(index(ligne, colonne), index(ligne, colonne),
                         {Qt::ForegroundRole, Qt::BackgroundRole});
}

void ModeleGrille::FixerAlignement(int colonne, Qt::Alignment alignement) {
    if (colonne < 0 || colonne >= NombreColonnes()) return;
    alignements[colonne] = alignement;
    if (!ordre.empty())
        emit dataChanged(index(0, colonne), index(static_cast<int>(ordre.size()) - 1, colonne),
                         {Qt::TextAlignmentRole});
}

void ModeleGrille::FixerCleTri(int colonne, CleTri cle) {
    if (colonne >= 0 && colonne < NombreColonnes()) cles[colonne] = std::move(cle);
}

void ModeleGrille::Trier(int colonne, Qt::SortOrder ordreTri) {
    FinRemplissage();
    if (colonne < 0 || colonne >= NombreColonnes()) return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList avant = persistentIndexList();
    const std::vector<int> ordreAvant = ordre;
    const bool decroissant = ordreTri == Qt::DescendingOrder;
    // Les textes sont lus sans copie : des vues sur le tampon.
    const auto vue = [&](int r) {
        const Cellule& c = cellules[static_cast<std::size_t>(r) * titres.size() + colonne];
        return QStringView(tampon).mid(c.debut, c.taille);
    };
    if (cles[colonne]) {
        std::vector<double> valeurs(donnees.size());
        for (int r : ordre)
            valeurs[r] = cles[colonne](vue(r));
        std::stable_sort(ordre.begin(), ordre.end(), [&](int a, int b) {
            return decroissant ? valeurs[b] < valeurs[a] : valeurs[a] < valeurs[b];
        });
    } else {
        std::stable_sort(ordre.begin(), ordre.end(), [&](int a, int b) {
            return decroissant ? vue(b).compare(vue(a)) < 0 : vue(a).compare(vue(b)) < 0;
        });
    }
    // Les index gardés (ligne courante, sélection, éditeur) suivent leur ligne.
    std::vector<int> nouveau(donnees.size(), -1);
    for (int i = 0; i < static_cast<int>(ordre.size()); ++i)
        nouveau[ordre[i]] = i;
    QModelIndexList apres;
    for (const QModelIndex& i : avant) {
        const bool garde = i.row() >= 0 && i.row() < static_cast<int>(ordreAvant.size());
        apres.append(garde ? index(nouveau[ordreAvant[i.row()]], i.column()) : QModelIndex());
    }
    changePersistentIndexList(avant, apres);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

int ModeleGrille::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(ordre.size());
}

int ModeleGrille::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : NombreColonnes();
}

QVariant ModeleGrille::data(const QModelIndex& i, int role) const {
    if (!i.isValid() || i.row() >= static_cast<int>(ordre.size())) return {};
    const int r = ordre[i.row()];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return TexteRange(r, i.column());
    case Qt::UserRole:
        return i.column() == 0 ? donnees[r] : QVariant();
    case RoleDonneeCellule:
        return donneesCellules.value(CleCellule(r, i.column()));
    case Qt::ForegroundRole: {
        const auto c = couleursTexte.constFind(CleCellule(r, i.column()));
        return c == couleursTexte.cend() ? QVariant() : QVariant(*c);
    }
    case Qt::BackgroundRole: {
        const auto c = couleursFond.constFind(CleCellule(r, i.column()));
        return c == couleursFond.cend() ? QVariant() : QVariant(*c);
    }
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(alignements[i.column()]);
    default:
        return {};
    }
}

bool ModeleGrille::setData(const QModelIndex& i, const QVariant& valeur, int role) {
    if (!i.isValid() || (role != Qt::EditRole && role != Qt::DisplayRole)) return false;
    FixerTexte(i.row(), i.column(), valeur.toString());
    return true;
}

QVariant ModeleGrille::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 &&
        section < NombreColonnes())
        return titres[section];
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags ModeleGrille::flags(const QModelIndex& i) const {
    if (!i.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

} // namespace ui
