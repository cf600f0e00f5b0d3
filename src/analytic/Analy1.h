#pragma once
// Gestion analytique des charges et des produits : les sections, les comptes de charges ou
// de produits, et leurs lignes, à qui l'on donne une section ou que l'on marque à ventiler.

#include "ui/EcranModal.h"

#include <memory>

namespace Ui {
class Analy1;
}

namespace ecran {

class Analy1 : public ui::EcranModal {
    Q_OBJECT
public:
    explicit Analy1(QWidget* parent = nullptr);
    ~Analy1() override;

public slots:
    void Form_Load();
    void MajTree1();
    void MajTree2();
    void MajTreeEcritures();
    void GererBoutonVentil();
    void BCreerSect_Click();
    void BModifSect_Click();
    void BSupprSect_Click();
    void Command3_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();

private:
    QString CompteChoisi() const;
    // Numéro et nom de la section choisie dans Tree2 ; faux (avec la boîte) sans choix.
    bool SectionChoisie(int& numero, QString& nom);
    void AnnulerAffectations(const QString& erEcr);

    std::unique_ptr<Ui::Analy1> ui;
};

} // namespace ecran
