#pragma once
// Options : symbole monétaire, décimales affichées, choix automatique de la société au
// démarrage, et remise des fenêtres à leur taille d'origine.

#include "ui/EcranModal.h"

#include <QStringList>
#include <memory>

namespace Ui {
class Options;
}

namespace ecran {

class Options : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Options(QWidget* parent = nullptr);
    ~Options() override;

public slots:
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

private:
    std::unique_ptr<Ui::Options> ui;
};

// Nombre écrit comme on l'attend d'un nombre de décimales : signe, chiffres, une virgule
// ou un point au plus, blancs aux bouts admis.
bool EstNumerique(const QString& texte);

// Les sections des écrans qui se souviennent de leur taille et des largeurs de leurs
// grilles (voir ui/Personalisation.h).
QStringList SectionsFenetres();
// Efface ces sections (une section absente ne gêne pas).
void ReinitialiserFenetres();

} // namespace ecran
