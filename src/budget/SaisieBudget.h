#pragma once
// Saisie des prévisions d'un compte de charges ou de produits, mois par mois : montants,
// pourcentages d'un total annuel, ou douzièmes. Un même écran pour l'exercice en cours
// (Budget02 : Budget, BudgetMnn) et pour le suivant (Budget01 : BudFut, BudFutMnn).

#include "base/Montant.h"
#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class SaisieBudget;
}

namespace ecran {

class SaisieBudget : public ui::EcranModal {
    Q_OBJECT
public:
    ~SaisieBudget() override;

    int ModeVentil = 1;
    bool SaisieModifiee = false;

    void ActionLChoix();
    void CalculCumul(int ligne, Montant montant);
    // Rend faux quand les pourcentages passent 100.
    bool CalculCumulPrc(int ligne, double pourcentage);
    void CalculPrct(int ligne, double pourcentage);
    void MajTree1();

public slots:
    void Tree1_Click();
    void Tree2_Click(int ligne);
    void Text1_Entree();
    void Command2_Click();
    void Command3_Click();
    void Command5_Click();

protected:
    SaisieBudget(QWidget* parent, bool suivant);
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void ChoisirMode(int mode);
    void PoserColonnes();
    void RemplirMois(const QString& numBud);
    QString TitrePrevision(const QString& debut) const;
    bool TotalAnnuelVide() const;

    std::unique_ptr<Ui::SaisieBudget> ui;
    const bool suivant;
};

class Budget01 : public SaisieBudget {
    Q_OBJECT
public:
    explicit Budget01(QWidget* parent = nullptr);
};

class Budget02 : public SaisieBudget {
    Q_OBJECT
public:
    explicit Budget02(QWidget* parent = nullptr);
};

} // namespace ecran
