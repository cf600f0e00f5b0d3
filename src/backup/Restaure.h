#pragma once
// Restauration d'un exercice sauvegardé sur disquette, dans une base où il n'existe plus.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Restaure;
}

namespace ecran {

class Restaure : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Restaure(QWidget* parent = nullptr);
    ~Restaure() override;

public slots:
    void Command1_Click();
    void Command2_Click();

private:
    std::unique_ptr<Ui::Restaure> ui;
};

} // namespace ecran
