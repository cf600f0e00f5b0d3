#pragma once
// Le journal des écritures de l'exercice, tel que l'annulation et la modification de
// libellé le montrent : les lignes les plus récentes d'abord, une ligne vide entre deux
// groupes, et la recherche du groupe d'une ligne cliquée par les marques de fin.

#include "ui/EcranModal.h"

#include <QString>
#include <QStringList>
#include <cstdint>

class QProgressBar;
class QWidget;

namespace ui {
class Grille;
}

// Donnée de ligne du séparateur entre deux groupes.
inline constexpr std::int32_t LigneSeparatrice = -1;

// Colonnes et largeurs des deux listes d'un écran de journal.
void PreparerListesJournal(ui::Grille* tree1, ui::Grille* tree2);

// Remplit tree1 avec le journal ("*" pour tous), vide tree2, montre la progression dans
// gauge1 et laisse l'écran répondre pendant la lecture.
void AffJournal(QWidget* ecran, ui::Grille* tree1, ui::Grille* tree2, QProgressBar* gauge1,
                const QString& journal);

// Marque de fin de la ligne ; 0 (début du journal) et un numéro absent rendent vrai.
bool FinEcr(std::int32_t numero);

// Groupe de la ligne p : premier et dernier numéro. Faux, après la boîte, pour le séparateur.
bool TrouverGroupe(std::int32_t p, std::int32_t& debut, std::int32_t& fin);

// Lignes debut à fin de l'exercice dans tree2 (vidé d'abord).
void AffGroupe(ui::Grille* tree2, std::int32_t debut, std::int32_t fin);

namespace ecran {

// Ecran bâti sur le journal (annulation, libellé) : le filtre, le groupe choisi, le journal
// lu à la première apparition de l'écran, et le groupe de la ligne cliquée.
class EcranJournal : public ui::EcranModal {
    Q_OBJECT
public:
    explicit EcranJournal(QWidget* parent = nullptr);

    QString FiltreJournal = QStringLiteral("*");
    std::int32_t NumDebutGroupe = 0;
    std::int32_t NumFinGroupe = 0;

public slots:
    virtual void Form_Activate() = 0;
    void AffJournal(const QString& journal);
    bool FinEcr(std::int32_t numero);

protected:
    // Les deux listes et la jauge de l'écran, une fois son formulaire monté.
    void Brancher(ui::Grille* journal, ui::Grille* groupe, QProgressBar* jauge);
    // Le groupe de la ligne montré dans la seconde liste ; faux sur le séparateur.
    bool ChoisirGroupe(int ligne);
    void showEvent(QShowEvent* evenement) override;

private:
    ui::Grille* tree1 = nullptr;
    ui::Grille* tree2 = nullptr;
    QProgressBar* gauge1 = nullptr;
    bool activee = false;
};

} // namespace ecran
