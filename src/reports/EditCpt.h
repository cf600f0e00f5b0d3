#pragma once
// Choix d'un compte à éditer : la liste des comptes, ses chiffres, puis son grand livre.

#include "ui/EcranModal.h"

#include <QString>
#include <functional>

namespace Ui {
class EditCpt;
}

namespace ecran {

class EditCpt : public ui::EcranModal {
    Q_OBJECT
public:
    // editer reçoit le numéro choisi (le grand livre d'un compte de l'écran Editions).
    EditCpt(std::function<void(const QString&)> editer, QWidget* parent = nullptr);
    ~EditCpt() override;

public slots:
    void Form_Load();
    void Tree1_SelectionChange();
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();

private:
    Ui::EditCpt* ui;
    std::function<void(const QString&)> editer;
    QString compte;
};

} // namespace ecran
