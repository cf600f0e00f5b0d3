#pragma once
// Balance des comptes de l'exercice, tirée des cumuls de Compte : générale (clients et
// fournisseurs par leurs collectifs), des clients ou des fournisseurs ; totaux dessous, et
// pour les tiers la ligne du collectif à comparer.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Balance;
}

namespace ecran {

class Balance : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Balance(QWidget* parent = nullptr);
    ~Balance() override;

public slots:
    // Construction de la balance (aussi à chaque choix et pour l'export).
    void Form_Load();
    void BRCompl_Click();
    void BRClient_Click();
    void BRFourn_Click();
    void Command1_Click();
    void Command3_Click();
    void Tree1_DblClick();
    void Tree1_ColumnResize(int colonne, int ancienne, int nouvelle);
    void SauverPersonalisations();

protected:
    void done(int resultat) override;

private:
    std::unique_ptr<Ui::Balance> ui;
    bool ExportEnCours = false;
    QString Separateur;
    QString NomFichier;
    bool personalisationsSauvees = false;
};

} // namespace ecran
