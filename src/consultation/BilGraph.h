#pragma once
// Bilan graphique : le bilan et le compte de résultat dessinés en piles de jauges de même
// hauteur, pour qu'un débutant voie d'où vient son patrimoine et ce que son activité a
// rapporté. Tiré des totaux courants de Constante.

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class BilGraph;
}
class QProgressBar;
class QLabel;

namespace ecran {

class BilGraph : public ui::EcranModal {
    Q_OBJECT
public:
    // Hauteur de chaque pile et haut de la première jauge, en unités d'écran d'origine.
    static constexpr double HauteurPile = 2500;
    static constexpr double HautPile = 660;
    // Pixels par unité.
    static constexpr double Echelle = 0.16;
    // Aide "Initiation originale à la comptabilité".
    static constexpr int PageInitiation = 40;

    explicit BilGraph(QWidget* parent = nullptr);
    ~BilGraph() override;

    void BilanGraphique();
    void CptResulGraphique();
    static void CalcResultat(Montant& Charges, Montant& Produits);

public slots:
    void Option1_Click();
    void Option2_Click();
    void Command1_Click();
    void Command2_Click();

private:
    struct Tranche {
        QProgressBar* jauge;
        Montant montant;
        QLabel* etiquette; // nullptr : pas d'étiquette propre
    };
    // Empile les jauges visibles depuis HautPile ; hauteur = montant × (2500 / total).
    static void Empiler(const QList<Tranche>& pile, double total);
    void Refuser(const QString& premiere, const QString& raison);

    std::unique_ptr<Ui::BilGraph> ui;
};

} // namespace ecran
