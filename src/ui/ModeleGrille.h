#pragma once
// Le modèle de la grille : les lignes rangées à plat (textes des cellules dans un seul
// tampon, donnée de ligne dans un tableau, données et couleurs des cellules à part), et
// l'ordre affiché tenu par une permutation des lignes rangées. Aucun objet par ligne : une
// année de journal tient en quelques dizaines de mégaoctets.

#include <QAbstractTableModel>
#include <QColor>
#include <QHash>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <vector>

namespace ui {

class ModeleGrille : public QAbstractTableModel {
    Q_OBJECT
public:
    // Donnée d'une cellule (hors texte), rendue par data() sous ce rôle.
    static constexpr int RoleDonneeCellule = Qt::UserRole + 1;

    explicit ModeleGrille(QObject* parent = nullptr);

    void FixerTitres(const QStringList& titres);
    int NombreColonnes() const { return static_cast<int>(titres.size()); }

    // Lignes dans l'ordre affiché ; celles d'un remplissage en cours sont comptées.
    int NombreLignes() const { return static_cast<int>(ordre.size() + attente.size()); }
    // Ajout en fin ; pendant un remplissage, la vue n'apprend les lignes qu'à la fin.
    int Ajouter(const QStringList& textes, const QVariant& donnee);
    void Inserer(int ligne, const QStringList& textes, const QVariant& donnee);
    void Supprimer(int ligne);
    void Vider();
    void DebutRemplissage();
    void FinRemplissage();

    QString Texte(int ligne, int colonne) const;
    void FixerTexte(int ligne, int colonne, const QString& texte);
    QVariant DonneeLigne(int ligne) const;
    void FixerDonneeLigne(int ligne, const QVariant& donnee);
    QVariant DonneeCellule(int ligne, int colonne) const;
    void FixerDonneeCellule(int ligne, int colonne, const QVariant& donnee);
    QColor CouleurTexte(int ligne, int colonne) const;
    QColor CouleurFond(int ligne, int colonne) const;
    void FixerCouleurs(int ligne, int colonne, const QColor& texte, const QColor& fond);
    void FixerAlignement(int colonne, Qt::Alignment alignement);

    // Clé de tri d'une colonne tirée du texte affiché (montant, date) ; sans clé, le texte
    // lui-même. Calculée au moment du tri : rien n'est gardé par ligne.
    using CleTri = std::function<double(QStringView)>;
    void FixerCleTri(int colonne, CleTri cle);
    // Tri stable de la permutation ; les lignes rangées ne bougent pas.
    void Trier(int colonne, Qt::SortOrder ordreTri);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& valeur, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Cellule {
        qint32 debut = 0;
        qint32 taille = 0;
    };
    int Rangee(int ligne) const;
    qint64 CleCellule(int rangee, int colonne) const {
        return static_cast<qint64>(rangee) * 4096 + colonne;
    }
    int Ranger(const QStringList& textes, const QVariant& donnee);
    QString TexteRange(int rangee, int colonne) const;

    QStringList titres;
    QString tampon;                // textes de toutes les cellules, bout à bout
    std::vector<Cellule> cellules; // rangee * colonnes + colonne
    std::vector<QVariant> donnees; // donnée de chaque ligne rangée
    std::vector<int> ordre;        // ligne affichée -> ligne rangée
    std::vector<int> attente;      // lignes d'un remplissage, pas encore annoncées
    int remplissage = 0;
    QHash<qint64, QVariant> donneesCellules;
    QHash<qint64, QColor> couleursTexte, couleursFond;
    std::vector<Qt::Alignment> alignements;
    std::vector<CleTri> cles;
};

} // namespace ui
