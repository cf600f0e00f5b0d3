#pragma once
// Export du fichier des écritures comptables de l'exercice ouvert, sous le nom que
// l'administration attend, après le SIREN de l'entreprise.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class ExportFEC;
}

namespace ecran {

class ExportFEC : public ui::EcranModal {
    Q_OBJECT
public:
    explicit ExportFEC(QWidget* parent = nullptr);
    ~ExportFEC() override;

public slots:
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::ExportFEC> ui;
};

} // namespace ecran
