// Receipts: payments that were taken, in cash, by cheque or by card.
#pragma once

#include <string>

#include "posto/core/enumerations.h"
#include "posto/fiscal/DALConsultaCheque.h"
#include "posto/fiscal/DALTipoRecebimento.h"
#include "posto/fiscal/catalogue.h"
#include "posto/schema/treasury.h"

namespace posto {

POSTO_DESCRIPTION(Recebimento, keys("Cd_PessoaUsuaria", "No_Recebimento"), generated)

// Standard operations (core/entity.h) with the differences told at each. VORecebimento carries No_Impressora,
// No_CupomFiscal and Dt_Emissao of the coupon that is paid; the table has no such columns.
class DALRecebimento : public Entity<VORecebimento, kRecebimento> {
 public:
  using Entity::Entity;

  // What it works with; each gets the settings and a value object of its own when it is used.
  DALConsultaCheque Ob_DALConsultaCheque;
  DALTipoRecebimento Ob_DALTipoRecebimento;
  DALRecebimentoCupom Ob_DALRecebimentoCupom;

  // Reads the coupon too, unless the receipt is a float ("SUPRIMENTO" in Nm_IdDocumentoRec). Of several coupons one is
  // taken; a receipt that pays none gives an empty coupon.
  VORecebimento& Consultar(bool Ic_RestaurarDefaulSeNaoEcontrarRegistro = false);
  // Executes instrucaoInsert; the caller supplies No_Recebimento. The coupon is IncluirRecebimentoCupom's.
  void Incluir();
  // The INSERT of the value object: dates as days, codes and texts that are not given as null.
  std::string instrucaoInsert();

  // Ties the receipt to its coupon, unless it has none or is a float. True. A failure leaves the receipt as it is.
  bool IncluirRecebimentoCupom();
  // Whether the same cheque or document was taken before: kind of receipt, document, bank, branch and account, each
  // as the value object holds it, in whatever company. On Tp_EdicaoAlteracao the receipt does not find itself.
  bool ExisteLancamentoDocumento(Tp_EdicaoEnum No_TipoEdicao);

 private:
  void SetarConexoeFilhas();
  bool is_float() const;
  void read_coupon();
};

inline constexpr Description kRecebimentos{.class_name = "DALRecebimentos", .table = "Recebimento"};

// Questions to many receipts.
class DALRecebimentos : public EntityBase {
 public:
  DALRecebimentos() : EntityBase(kRecebimentos) {}
  explicit DALRecebimentos(std::shared_ptr<VOSistema> settings) : EntityBase(kRecebimentos, std::move(settings)) {}

  // The receipts of a shift and of a kind that still lie in the drawer, by number, of the company of the settings;
  // detached. The printer is accepted and not used.
  Recordset ConsultarRecebimentosNaoSangradosDoCaixa(const VOCaixa& ObVOCaixa,
                                                     const VOTipoRecebimento& ObVOTipoRecebimento,
                                                     std::uint8_t No_Impressora);

 protected:
  ValueObject vo() override { return by_name(unused_); }

 private:
  VORecebimento unused_;
};

}  // namespace posto
