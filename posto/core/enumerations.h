// What stored columns and arguments hold. The numbers are part of the stored data: none of them changes.
#pragma once

#include <cstdint>

namespace posto {

// The members of three enumerations would meet each other or everyday names, so they are asked for through their
// enumeration: No_PortaECFEnum::Com1, No_PortaSerialEnum::Com1, Tp_BytesimNao::sim.

// Kind of deletion.
enum CdTipoExclusao : std::int32_t { CdTipoExclusaoFisica = 1, CdTipoExclusaoLogica = 2 };

// Database dialect (Cd_BD).
enum CdBancoDadosEnum : std::int32_t {
  BancoDadosAcess1997 = 11,
  BancoDadosAcess2000 = 12,
  BancoDadosSqlServer2000 = 21
};

// Which data-access library serves the settings (Nm_DllDAL).
enum NmDllDALEnum : std::int32_t { DALvr5AdoSqlAnsiEnum = 1 };

// Fiscal printer model.
enum NmModeloECFEnum : std::int32_t { ModeloECFNenhum = 0, ModeloECFBematechMP20FI = 1, ModeloECFBematechMP20FI2 = 2 };

// Pump automation model.
enum CdModeloAutomacaoBombasEnum : std::int32_t { ModeloAutomacaoBombasNenhuma = 0, ModeloAutomacaoBombasCBC04 = 1 };

// Kind of price change.
enum TpAlteracaoPreco : std::int32_t { TpAlteracaoPrecoDesconto = 0, TpAlteracaoPrecoAcrescimo = 1 };

// Kind of discount.
enum TpDesconto : std::int32_t { TpDescontoEmPercentual = 0, TpDescontoEmValor = 1 };

// Kind of surcharge.
enum TpAcrescimo : std::int32_t { TpAcrescimoEmPercentual = 0, TpAcrescimoEmValor = 1 };

// Edit mode handed to operations that must tell an insert from a change.
enum Tp_EdicaoEnum : std::int32_t {
  Tp_EdicaoOmitido = 0,
  Tp_EdicaoInclusao = 1,
  Tp_EdicaoAlteracao = 2,
  Tp_EdicaoConsulta = 3,
  Tp_EdicaoExclusao = 4
};

// Kind of person.
enum Tp_PessoaEnum : std::int32_t { Tp_PessoaNaoDefinida = 0, Tp_PessoaFisica = 1, Tp_PessoaJuridica = 2 };

// Whether an option is allowed.
enum Fl_OpcaoSenhaEnum : std::int32_t { Fl_OpcaoPermitida = 1, Fl_OpcaoProibida = 0 };

// State of a cash shift.
enum Cd_SituacaoEnum : std::int32_t { Cd_SituacaoAberto = 1, Cd_SituacaoFechado = 2, Cd_SituacaoConferido = 3 };

// Index of a collection of pumps.
enum Tp_IndiceColecaoBombaEnum : std::int32_t { Tp_IndiceColecaoBombaCdBomba = 1, Tp_IndiceColecaoBombaDeLogica = 2 };

// How a fuelling was asked of the automation.
enum Fl_TipoPedidoFeitoAutomacaoEnum : std::int32_t { Fl_FoiPedidoOProximo = 1, Fl_FoiPedidoPorNumero = 2 };

// Origin of a fuelling.
enum Tp_OrigemRegistroEnum : std::int32_t {
  Tp_OrigemRegistroAutomacao = 1,
  Tp_OrigemRegistroGerado = 2,
  Tp_OrigemRegistroDigitado = 3
};

// Fiscal printer totaliser kind.
enum Tp_TotalizadorECFEnum : std::int32_t { No_TotalizadorECFIcms = 0, No_TotalizadorECFIss = 1 };

// Kind of exit in the fuel book.
enum Tp_SaidaEnum : std::int32_t { Tp_SaidaEncerranteInicial = 0, Tp_SaidaVendas = 11, Tp_SaidaAfericoes = 91 };

// Kind of tax rate.
enum Ic_TipoAliquotaEnum : std::int32_t { Ic_TipoAliquotaICMS = 0, Ic_TipoAliquotaISS = 1 };

// Print impact.
enum No_ImpactoImpressaoEnum : std::int32_t {
  No_ImpactoImpressaoFraco = 1,
  No_ImpactoImpressaoMedio = 2,
  No_ImpactoImpressaoForte = 3
};

// Number of a fiscal printer totaliser.
enum No_TotalizadorECFEnum : std::int32_t {
  No_TotalizadorECF01 = 1,
  No_TotalizadorECF02 = 2,
  No_TotalizadorECF03 = 3,
  No_TotalizadorECF04 = 4,
  No_TotalizadorECF05 = 5,
  No_TotalizadorECF06 = 6,
  No_TotalizadorECF07 = 7,
  No_TotalizadorECF08 = 8,
  No_TotalizadorECF09 = 9,
  No_TotalizadorECF10 = 10,
  No_TotalizadorECF11 = 11,
  No_TotalizadorECF12 = 12,
  No_TotalizadorECF13 = 13,
  No_TotalizadorECF14 = 14,
  No_TotalizadorECF15 = 15,
  No_TotalizadorECF16 = 16,
  No_TotalizadorECFIsencao = 17,
  No_TotalizadorECFNaoInsidencia = 18,
  No_TotalizadorECFSubstituicao = 19,
  No_TotalizadorECFSangria = 20,
  No_TotalizadorECFSuprimento = 21,
  No_TotalizadorECFGrandeTotal = 22
};

// Paper state of a printer.
enum Tp_EstadoPapelEnum : std::int32_t {
  Tp_EstadoPapelFimPapel = 1,
  Tp_EstadoPapelPoucoPapel = 2,
  Tp_EstadoPapelPapelSuficiente = 3
};

// Cash drawer state.
enum Tp_EstadoGavetaEnum : std::int32_t { Tp_EstadoGavetaAberta = 0, Tp_EstadoGavetaFechada = 1 };

// Fiscal printer type.
enum Tp_ECFEnum : std::int32_t {
  Tp_ECFEnum_Imp_Gav_Aut = 1,
  Tp_ECFEnum_Imp_Gav_Cut = 2,
  Tp_ECFEnum_Imp_Pre_Cut_Aut = 3,
  Tp_ECFEnum_Imp_Pre_Cut = 4
};

// Serial port of the fiscal printer.
namespace porta_ecf {
enum No_PortaECFEnum : std::int32_t { Com1 = 1, Com2 = 2, Com3 = 3, Com4 = 4 };
}
using porta_ecf::No_PortaECFEnum;

// Credit consultation service in use.
enum Tp_ConsultaCredClienteEnum : std::int32_t {
  CheckCheck = 1,
  DataChequeDtcExe = 2,
  DataChequeDiretoMdb = 3,
  DataChequeDtcDll = 4
};

// Yes or no as a byte.
namespace byte_sim_nao {
enum Tp_BytesimNao : std::int32_t { sim = 1, Nao = 0 };
}
using byte_sim_nao::Tp_BytesimNao;

// Cheque operation.
enum Tp_OperacaoEnum : std::int32_t { Tp_OperacaoChequeEmitente = 1, Tp_OperacaoChequeTerceiro = 3 };

// Kind of sale.
enum Tp_VendaEnum : std::int32_t {
  Tp_VendaACreditoCartao = 11,
  Tp_VendaACreditoPlaca = 12,
  Tp_VendaACreditoRequisicao = 13,
  Tp_VendaAcertadaSemEmissaoNF = 21,
  Tp_VendaAcertadaComEmissaoNF = 22
};

// Stock ledger movement type.
enum No_TipoEstoqueEnum : std::int32_t {
  TipoEstoqueInvalido = 0,
  EntradaCompras = 10,
  Sobras = 11,
  EntradaDevVendas = 12,
  EntradaTransfEmbalagem = 13,
  AjusteEntradaKardexLmc = 14,
  SaidaVendas = 20,
  Perdas = 21,
  SaidaTransfEmbalagem = 23,
  AjusteSaidaKardexLmc = 24
};

// When an invoice is printed.
enum Tp_ImpNfEnum : std::int32_t { Tp_ImpNfEnumNao = 1, Tp_ImpNfEnumNaVenda = 11, Tp_ImpNfEnumNaFatura = 12 };

// Which items a coupon or invoice query returns.
enum TipoConsultaItensEnum : std::int32_t { TodosItens = 1, SomenteProdutos = 2, SomenteServicos = 3 };

// Record edit state.
enum TipoEdicaoRegistro : std::int32_t {
  EdicaoInclusao = 1,
  EdicaoAlteracao = 2,
  EdicaoConsulta = 3,
  EdicaoExclusao = 4,
  EdicaoSalvacao = 5
};

// Special price condition.
enum Tp_CondicaoEnum : std::int32_t {
  Tp_CondicaoDescontoPercentual = 11,
  Tp_CondicaoDescontoValor = 12,
  Tp_CondicaoAcrescimoPercentual = 21,
  Tp_CondicaoAcrescimoValor = 22,
  Tp_CondicaoPrecoFixo = 30
};

// Parallel printer port.
enum Nm_PortaImpressoraEnum : std::int32_t { Nm_PortaLPT1 = 1, Nm_PortaLPT2 = 2, Nm_PortaLPT3 = 3, Nm_PortaLPT4 = 4 };

// Serial port.
namespace porta_serial {
enum No_PortaSerialEnum : std::int32_t { Com1 = 1, Com2 = 2, Com3 = 3, Com4 = 4 };
}
using porta_serial::No_PortaSerialEnum;

// Order of rsEstoqueConsolidado.
enum orderByEstoqueConsolidado : std::int32_t {
  orderByEstoqueConsolidadoNm_GrupoENm_Produto = 1,
  orderByEstoqueConsolidadoCd_Produto = 2
};

}  // namespace posto
