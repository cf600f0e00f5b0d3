#pragma once
// Numéro et nom d'une section analytique, à créer ou à renommer.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Analy1b;
}

namespace ecran {

class Analy1b : public ui::EcranModal {
    Q_OBJECT
public:
    // En modification, le numéro est donné et ne se change pas.
    Analy1b(QWidget* parent, bool creation, int numero = 0, const QString& nom = QString());
    ~Analy1b() override;

    // Le résultat : rempli seulement quand la saisie a été validée.
    QString NumSectionChoisie, NomSectionChoisie;

public slots:
    void Command1_Click();
    void Command2_Click();

private:
    std::unique_ptr<Ui::Analy1b> ui;
    const bool creation;
};

} // namespace ecran
