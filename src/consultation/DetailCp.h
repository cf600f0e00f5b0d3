#pragma once
// Détail d'un compte (le compte choisi) : toutes ses lignes avec le solde qui court depuis
// son solde de début, et leur export.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class DetailCp;
}

namespace ecran {

class DetailCp : public ui::EcranModal {
    Q_OBJECT
public:
    explicit DetailCp(QWidget* parent = nullptr);
    ~DetailCp() override;

public slots:
    void Form_Load();
    void Command1_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::DetailCp> ui;
    QString numero;
    QString nomExport;
};

} // namespace ecran
