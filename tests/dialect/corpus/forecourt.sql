-- DALBomba.Consultar (by number)
SELECT    *
FROM     Bomba
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Bomba = 3

-- DALBomba.Consultar (by address)
SELECT    *
FROM     Bomba
WHERE    Cd_PessoaUsuaria = 1 and
         De_EnderecoLogicoBico = '04'

-- DALBomba.Alterar (by address, without tenant)
SELECT    *
FROM     Bomba
WHERE    De_EnderecoLogicoBico = '04'

-- DALBomba.Incluir
Select * From Bomba Where Cd_PessoaUsuaria = 0 and Cd_Bomba = 0

-- DALBomba.Excluir
DELETE
FROM Bomba
WHERE Cd_PessoaUsuaria = 1
      and Cd_Bomba = 3

-- DALBomba.UltimoEncerranteEletronico
SELECT   TOP 1 No_EncerranteFechamento
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1
And      De_EnderecoLogicoBico = '04'
ORDER BY Dt_Termino Desc, No_Contador Desc, Cd_Abastecimento Desc

-- DALBomba.EncerranteAnteriorAoDia
SELECT   TOP 1 No_EncerranteFechamento
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1
And      De_EnderecoLogicoBico = '04'
And      Dt_Termino < '2009-04-03'
ORDER BY Dt_Termino Desc, No_Contador Desc

-- DALBomba.DataUltimoAbastecimento
 SELECT Max(A.Dt_Termino) AS MaxDeDt_Termino
 FROM   Abastecimento AS A
 WHERE  A.Cd_PessoaUsuaria = 1
 AND    A.De_EnderecoLogicoBico = '04' ;

-- DALBomba.Rs_AbastecimentosPendentes
 SELECT   A.*, Pessoa.Nm_Pessoa
 FROM     Abastecimento AS A
 LEFT JOIN Caixa       AS B      ON A.Cd_Caixa = B.Cd_Caixa
 LEFT JOIN Funcionario AS C      ON B.Cd_Funcionario = C.Cd_Funcionario
 LEFT JOIN Pessoa      AS Pessoa ON C.Cd_Funcionario = Pessoa.Cd_Pessoa
 WHERE    A.Cd_PessoaUsuaria = 1
 AND      A.De_EnderecoLogicoBico = '04'
 AND      A.Ic_Baixado = 0
 ORDER BY A.Vl_Total, A.Dt_Termino

-- DALBomba.Rs_AbastecimentosNaoConferido
 SELECT   A.*
 FROM     Abastecimento A
 WHERE    A.Cd_PessoaUsuaria = 1
 AND      A.Cd_Abastecimento >= 4711
 AND      A.De_EnderecoLogicoBico ='04'
 AND      A.Dt_Termino > '2009-03-31'
 ORDER BY A.Dt_Termino, A.No_Contador

-- DALBomba.Rs_AbastecimentoNaoVerificado
SELECT   *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1
And      De_EnderecoLogicoBico = '04'
And      Dt_Termino  Between '2009-04-03 00:00:00' and '2009-04-03 23:59:59'
ORDER BY Dt_Termino, No_Contador, Cd_Abastecimento

-- DALBomba.Rs_AbastecimentoNaoVerificado (revision 192)
SELECT   *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1
And      De_EnderecoLogicoBico = '04'
And      Dt_Termino  Between '2009-04-03 00:00:00' and '2009-04-03 23:59:59'
ORDER BY Dt_Termino, Cd_Abastecimento

-- DALBombas.ConsultarTodasRs
SELECT    *
FROM     Bomba
WHERE    Cd_PessoaUsuaria = 1
ORDER BY Cd_Bomba

-- DALRespBomba.Consultar
SELECT    *
FROM     RespBomba
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Caixa = 87 and
         Dt_RespBomba = '2009-04-03' and
         Cd_Bomba = 3

-- DALRespBomba.Incluir
Select * From RespBomba Where Cd_PessoaUsuaria = 0 and Cd_Caixa = 0 and Cd_Bomba = 0 and Dt_RespBomba = Null

-- DALRespBomba.Excluir
DELETE
FROM RespBomba
WHERE Cd_PessoaUsuaria = 1
      and Cd_Caixa = 87
      and Dt_RespBomba = '2009-04-03'
      and Cd_Bomba = 3

-- DALRespBomba.FecharResponsabilidade
SELECT    *
FROM     RespBomba
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Caixa = 87 and
         Cd_Bomba = 3
ORDER BY Dt_RespBomba

-- DALLogLiberacaoBico.Consultar
SELECT    *
FROM     LogLiberacaoBico
WHERE    Cd_PessoaUsuaria = 1 and
         No_Liberacao = 15

-- DALLogLiberacaoBico.Incluir
INSERT INTO LogLiberacaoBico
       (No_Liberacao, Cd_PessoaUsuaria, Cd_Bomba, No_TipoVencimento, Ic_BaixaAutomatica, No_TipoPagamento,
        Cd_Veiculo, Cd_Funcionario, Dt_Liberacao, Cd_Caixa, No_TipoHardware)
Values (15, 1, 3, 0, -1, 2, 'ABC1234', 42, '2009-04-03 10:14:05', 87, 1)

-- DALLogLiberacaoBico.Incluir (no vehicle)
INSERT INTO LogLiberacaoBico
       (No_Liberacao, Cd_PessoaUsuaria, Cd_Bomba, No_TipoVencimento, Ic_BaixaAutomatica, No_TipoPagamento,
        Cd_Veiculo, Cd_Funcionario, Dt_Liberacao, Cd_Caixa, No_TipoHardware)
Values (16, 1, 3, 0, 0, 2, Null, 42, '2009-04-03 10:14:05', 87, 1)

-- DALAutomacaoBomba.Consultar
SELECT    *
FROM     AutomacaoBomba
WHERE    Cd_PessoaUsuaria = 1

-- DALAbastecimento.Consultar (by code)
SELECT    *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_Abastecimento = 4711

-- DALAbastecimento.Consultar (by totaliser)
SELECT    *
FROM     Abastecimento
WHERE    Cd_PessoaUsuaria = 1 and
         De_EnderecoLogicoBico = '04' and
         No_EncerranteFechamento = 123456.8

-- DALAbastecimento.Incluir
INSERT INTO Abastecimento
       (Cd_PessoaUsuaria, Tp_OrigemRegistro, No_Contador, Dt_Termino, Qt_TempoSegundos, Qt_Litros, Qt_LitrosAutomacao,
        Vl_Preco, Vl_Total, De_EnderecoLogicoBico, No_EncerranteFechamento, Cd_Caixa, Cd_Veiculo, No_TipoPagamento,
        Ic_BaixaAutomatica, Cd_Abastecimento, Ic_Baixado, Fl_TipoPedidoFeitoAutomacao, No_TipoVencimento, Ic_Afericao,
        Cd_Cmc7, Tx_DescontoAbastecimento, No_Hodometro)
Values (1, 1, 12, '2009-04-03 10:15:30', 95, 40.13000000, 40.13000000,
        2.499, 100.285, '04', 123456.78000000, 87, Null, 2,
        -1, 4711, 0, 1, 0, 0,
        Null, 0.000, 0)

-- DALAbastecimento.Incluir (vehicle and cheque preset)
INSERT INTO Abastecimento
       (Cd_PessoaUsuaria, Tp_OrigemRegistro, No_Contador, Dt_Termino, Qt_TempoSegundos, Qt_Litros, Qt_LitrosAutomacao,
        Vl_Preco, Vl_Total, De_EnderecoLogicoBico, No_EncerranteFechamento, Cd_Caixa, Cd_Veiculo, No_TipoPagamento,
        Ic_BaixaAutomatica, Cd_Abastecimento, Ic_Baixado, Fl_TipoPedidoFeitoAutomacao, No_TipoVencimento, Ic_Afericao,
        Cd_Cmc7, Tx_DescontoAbastecimento, No_Hodometro)
Values (1, 3, 13, '2009-04-03 10:21:02', 60, 20.00000000, 0.00000000,
        2.499, 49.980, '', 123476.78000000, Null, 'ABC1234', 2,
        0, 4712, -1, 2, 0, -1,
        '237024500180000115505603', 1.500, 85210)

-- DALAbastecimento.Excluir
DELETE
FROM Abastecimento
WHERE Cd_PessoaUsuaria = 1
      and Cd_Abastecimento = 4711

-- DALAbastecimento.BaixarAbastecimento
Update Abastecimento
Set    Ic_Baixado = 1
WHERE  Cd_Abastecimento = 4711

-- DALAbastecimento.ConferirBaixa
SELECT   Cd_Abastecimento, Count(*) As Qt_BaixasDoAbastecimento
FROM     ItemCupomFiscal
WHERE    Cd_Abastecimento = 4711
GROUP BY Cd_Abastecimento

-- DALAbastecimento.ConsultarProximoAbastecimentosBaixaAutomatica (posting by age on)
SELECT   Top 1 Abastecimento.* , Usuario.Cd_Usuario, Caixa.Cd_Funcionario, Bomba.Cd_Bomba
FROM     Abastecimento
INNER JOIN Caixa       On Abastecimento.Cd_Caixa = Caixa.Cd_Caixa
INNER JOIN Funcionario On Caixa.Cd_PessoaUsuaria = Funcionario.Cd_PessoaUsuaria And Caixa.Cd_Funcionario = Funcionario.Cd_Funcionario
INNER JOIN Usuario     On Funcionario.Cd_PessoaUsuaria = Usuario.Cd_PessoaUsuaria And Funcionario.Cd_Funcionario = Usuario.Cd_Funcionario
INNER JOIN Bomba       On Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE    Abastecimento.Cd_PessoaUsuaria = 1
And      Abastecimento.Ic_Baixado = 0
And      (Abastecimento.Ic_BaixaAutomatica <> 0 or Abastecimento.Dt_Termino <= '2009-04-03 10:10:30')
And      Usuario.FlMCupomFiscal_I = '1'
And      Bomba.Nm_ComputadorBaixaAutomatica = 'PISTA01'
ORDER BY Abastecimento.Dt_Termino

-- DALAbastecimento.ConsultarProximoAbastecimentosBaixaAutomatica (posting by age off)
SELECT   Top 1 Abastecimento.* , Usuario.Cd_Usuario, Caixa.Cd_Funcionario, Bomba.Cd_Bomba
FROM     Abastecimento
INNER JOIN Caixa       On Abastecimento.Cd_Caixa = Caixa.Cd_Caixa
INNER JOIN Funcionario On Caixa.Cd_PessoaUsuaria = Funcionario.Cd_PessoaUsuaria And Caixa.Cd_Funcionario = Funcionario.Cd_Funcionario
INNER JOIN Usuario     On Funcionario.Cd_PessoaUsuaria = Usuario.Cd_PessoaUsuaria And Funcionario.Cd_Funcionario = Usuario.Cd_Funcionario
INNER JOIN Bomba       On Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE    Abastecimento.Cd_PessoaUsuaria = 1
And      Abastecimento.Ic_Baixado = 0
And      Abastecimento.Ic_BaixaAutomatica <> 0
And      Usuario.FlMCupomFiscal_I = '1'
And      Bomba.Nm_ComputadorBaixaAutomatica = 'PISTA01'
ORDER BY Abastecimento.Dt_Termino

-- DALAbastecimentos.ConsultarAbastecimentoPendentesRs
SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
FROM (Abastecimento AS A
LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico)
LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
WHERE ( ((A.Cd_PessoaUsuaria)= 1) And ((A.Ic_Baixado)= 0)  )
ORDER BY A.Dt_Termino DESC, B.Cd_Bomba ;

-- DALAbastecimentos.ConsultarAbastecimentoPendentesRs (one employee, ascending)
SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
FROM (Abastecimento AS A
LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico)
LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
WHERE ( ((A.Cd_PessoaUsuaria)= 1) And ((A.Ic_Baixado)= 0) And ((C.Cd_Funcionario) = 42) )
ORDER BY A.Dt_Termino, B.Cd_Bomba ;

-- DALAbastecimentos.ConsultarAbastecimentoPendentesRs (ascending)
SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
FROM (Abastecimento AS A
LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico)
LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
WHERE ( ((A.Cd_PessoaUsuaria)= 1) And ((A.Ic_Baixado)= 0)  )
ORDER BY A.Dt_Termino, B.Cd_Bomba ;

-- DALAbastecimentos.ConsultarAbastecimentoPendentesRs (one employee)
SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
FROM (Abastecimento AS A
LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico)
LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
WHERE ( ((A.Cd_PessoaUsuaria)= 1) And ((A.Ic_Baixado)= 0) And ((C.Cd_Funcionario) = 42) )
ORDER BY A.Dt_Termino DESC, B.Cd_Bomba ;

-- DALAbastecimentos.ConsultarAbastecimentoPendentesOrdenadoPorCodigoRs
SELECT    A.* , B.Cd_Bomba , C.Cd_Funcionario
FROM      Abastecimento AS A
LEFT JOIN Bomba AS B ON A.De_EnderecoLogicoBico = B.De_EnderecoLogicoBico
LEFT JOIN Caixa AS C ON A.Cd_Caixa = C.Cd_Caixa
WHERE     A.Cd_PessoaUsuaria = 1
And       A.Ic_Baixado = 0
ORDER BY  A.Cd_Abastecimento Desc

-- DALAbastecimentos.VerificaAbastecimentosBaixadosSemEmissaoCupom
-- refused: UPDATE over a join in another dialect, Date() unknown, alias A without a table
 UPDATE (Encerrante
 LEFT JOIN ItemCupomFiscal ON Encerrante.No_Abastecimento = ItemCupomFiscal.No_Abastecimento)
 INNER JOIN Abastecimento ON Encerrante.No_Abastecimento = Abastecimento.No_Abastecimento
 SET Abastecimento.No_Abastecimento = 0
 WHERE ( ((A.Cd_PessoaUsuaria)= 1) AND ((ItemCupomFiscal.No_CupomFiscal) Is Null) AND ((Encerrante.Dt_Emissao)=Date()) ) ;

-- DALSisTubulacao.Consultar
SELECT    *
FROM     SisTubulacao
WHERE    Cd_PessoaUsuaria = 1 and
         Cd_SisTubulacao = 2

-- DALTanque.Consultar
SELECT    *
FROM     Tanque
WHERE    Cd_PessoaUsuaria = 1 and
         No_Tanque = 4

-- DALMedidaTanque.Consultar
SELECT *
FROM MedidaTanque
WHERE Tp_MedidaTanque = 8
And Qt_Centimetros <= 12.34
ORDER BY Qt_Centimetros Desc

-- DALMedidaTanque.Alterar
SELECT    *
FROM     MedidaTanque
WHERE    Tp_MedidaTanque = 8 and
         Qt_Centimetros = 12.3

-- DALMedidaTanque.Incluir
Select * From MedidaTanque Where Tp_MedidaTanque = 0 and Qt_Centimetros = 0

-- DALMedidaTanque.Excluir
DELETE
FROM MedidaTanque
WHERE Tp_MedidaTanque = 8
      and Qt_Centimetros = 12.34

-- DALTanque.TempCriarMedidasIntermediarias
SELECT *
FROM MedidaTanque
WHERE Tp_MedidaTanque = 8
ORDER BY Qt_Centimetros

-- DALTanque.TempCriarMedidasIntermediarias (intermediate line)
INSERT INTO MedidaTanque (Tp_MedidaTanque,Qt_Centimetros,Qt_Litros) Values (8,12.3,456)

-- DALDescarga.Consultar
SELECT    *
FROM     Descarga
WHERE    Cd_PessoaUsuaria = 1 and
         No_Entrada = 310 and
         No_Tanque = 4

-- DALDescarga.Incluir
Select * From Descarga Where Cd_PessoaUsuaria = 0 and No_Entrada = 0 and No_Tanque = 0

-- DALEstoqueSisTubulacao.Consultar
SELECT    *
FROM     EstoqueSisTubulacao
WHERE    Cd_PessoaUsuaria = 1 and
         Dt_Estoque = '2009-04-03' and
         Cd_SisTubulacao = 2

-- DALEstoqueSisTubulacao.Incluir
Select * From EstoqueSisTubulacao Where Cd_PessoaUsuaria = 0 and Dt_Estoque = Null and Cd_SisTubulacao = 0

-- DALEstoqueSisTubulacao.adorsSistemasTubulacao
SELECT SisTubulacao.*
FROM   SisTubulacao
INNER JOIN Produto On SisTubulacao.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And SisTubulacao.Cd_Produto = Produto.Cd_Produto
WHERE  Produto.Cd_PessoaUsuaria = 1
And    Produto.Fl_VendBomba <> 0

-- DALEstoqueSisTubulacao.QuantidadeDeEntradas
SELECT Sum(Descarga.Qt_UnidadeDescarga) As SomaDeQt_Unidade
FROM   Descarga
INNER JOIN NotaEntrada On Descarga.No_Entrada = NotaEntrada.No_Entrada
INNER JOIN Tanque On Descarga.No_Tanque = Tanque.No_Tanque
WHERE  Descarga.Cd_PessoaUsuaria = 1
And    Descarga.Cd_ProdutoDescarga = 5
And    NotaEntrada.Dt_Entrega = '2009-04-03'
And    Tanque.Cd_SisTubulacao = 2

-- DALEstoqueSisTubulacao.QuantidadeDeSobras
SELECT Sum(Qt_Unidade) As SomaDeQt_Unidade
FROM   Cardex
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Emissao = '2009-04-03'
And    Cd_SisTubulacao = 2
And    No_Tipo = 11

-- DALEstoqueSisTubulacao.QuantidadeDePerdas
SELECT Sum(Qt_Unidade) As SomaDeQt_Unidade
FROM   Cardex
WHERE  Cd_PessoaUsuaria = 1
And    Dt_Emissao = '2009-04-03'
And    Cd_SisTubulacao = 2
And    No_Tipo = 21

-- DALEstoqueSisTubulacao.QuantidadeDeSaida
SELECT Sum(Qt_Litros) As SomaDeQt_Litros
FROM   Abastecimento
INNER JOIN Bomba On Abastecimento.De_EnderecoLogicoBico = Bomba.De_EnderecoLogicoBico
WHERE  Abastecimento.Cd_PessoaUsuaria = 1
And    Dt_Termino Between '2009-04-03 00:00:00' And '2009-04-03 23:59:59'
And    Bomba.Cd_SisTubulacao = 2
And    Abastecimento.Ic_Afericao = 0

-- DALConciliacaoEstoqueTanques.Consultar
SELECT   *
FROM     ConciliacaoEstoqueTanques
WHERE    Cd_PessoaUsuaria = 1
And      No_Tanque = 4
And      Dt_Conciliacao = '2009-04-03 06:30:00'

-- DALConciliacaoEstoqueTanques.Incluir
Select * From ConciliacaoEstoqueTanques Where Cd_PessoaUsuaria = 0 and No_Tanque = 0 and Dt_Conciliacao = Null

-- DALConciliacaoEstoqueTanques.Excluir
DELETE
FROM     ConciliacaoEstoqueTanques
WHERE    Cd_PessoaUsuaria = 1
And      No_Tanque = 4
And      Dt_Conciliacao = '2009-04-03 06:30:00'

-- DALConciliacaoEstoqueSisTubulacao.Consultar
SELECT   *
FROM     ConciliacaoEstoqueSisTubulacao
WHERE    Cd_PessoaUsuaria = 1
And      Cd_SisTubulacao   = 2
And      Dt_Conciliacao = '2009-04-03 06:30:00'

-- DALConciliacaoEstoqueSisTubulacao.Incluir
Select * From ConciliacaoEstoqueSisTubulacao Where Cd_PessoaUsuaria = 0 and Cd_SisTubulacao = 0 and Dt_Conciliacao = Null

-- DALConciliacaoEstoqueSisTubulacao.Excluir
DELETE
FROM     ConciliacaoEstoqueSisTubulacao
WHERE    Cd_PessoaUsuaria = 1
And      Cd_SisTubulacao   = 2
And      Dt_Conciliacao = '2009-04-03 06:30:00'

-- DALConciliacaoEstoqueTanques.MedidasRs
SELECT   ConciliacaoEstoqueTanques.*, Produto.Nm_Produto
FROM     ConciliacaoEstoqueTanques
INNER JOIN Tanque On ConciliacaoEstoqueTanques.Cd_PessoaUsuaria = Tanque.Cd_PessoaUsuaria And ConciliacaoEstoqueTanques.No_Tanque = Tanque.No_Tanque
INNER JOIN Produto On Tanque.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And Tanque.Cd_Produto = Produto.Cd_Produto
WHERE    ConciliacaoEstoqueTanques.Cd_PessoaUsuaria = 1
And      ConciliacaoEstoqueTanques.Dt_Conciliacao = '2009-04-03 06:30:00'
ORDER BY ConciliacaoEstoqueTanques.No_Tanque

-- DALConciliacaoEstoqueTanques.DiferencasRs
SELECT   Tanque.Cd_SisTubulacao, Produto.Nm_Produto,
         Sum(ConciliacaoEstoqueTanques.Qt_Estoque) As Qt_EstoqueFisico,
         EstoqueSisTubulacao.Qt_Estoque As Qt_EstoqueSistema,
         Sum(ConciliacaoEstoqueTanques.Qt_Estoque) - EstoqueSisTubulacao.Qt_Estoque As Qt_Diferenca
FROM     ConciliacaoEstoqueTanques
INNER JOIN Tanque On ConciliacaoEstoqueTanques.Cd_PessoaUsuaria = Tanque.Cd_PessoaUsuaria And ConciliacaoEstoqueTanques.No_Tanque = Tanque.No_Tanque
INNER JOIN Produto On Tanque.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And Tanque.Cd_Produto = Produto.Cd_Produto
INNER JOIN EstoqueSisTubulacao On EstoqueSisTubulacao.Cd_PessoaUsuaria = Produto.Cd_PessoaUsuaria And EstoqueSisTubulacao.Cd_SisTubulacao = Tanque.Cd_SisTubulacao
WHERE    ConciliacaoEstoqueTanques.Cd_PessoaUsuaria = 1
And      ConciliacaoEstoqueTanques.Dt_Conciliacao = '2009-04-03 06:30:00'
And      EstoqueSisTubulacao.Dt_Estoque = '2009-04-03'
GROUP BY Tanque.Cd_SisTubulacao, Produto.Nm_Produto, EstoqueSisTubulacao.Qt_Estoque
ORDER BY Tanque.Cd_SisTubulacao
