CREATE TABLE "Lancamento" (
  "Cd_PessoaUsuaria" int NOT NULL,
  "Cd_Lancamento" int NOT NULL IDENTITY(1,1),
  "Cd_Destinatário" smallint NULL,
  "No_Tipo" tinyint NOT NULL DEFAULT 0,
  "Fl_Excluido" bit NOT NULL DEFAULT 0,
  "Vl_Total" money NULL,
  "Qt_Litros" real NOT NULL,
  "No_Encerrante" float NULL,
  "Dt_Emissao" datetime NULL,
  "De_Historico" varchar(80) COLLATE Latin1_General_CI_AS NULL,
  "De_Livre" varchar(max) COLLATE Latin1_General_CI_AS NULL,
  PRIMARY KEY ("Cd_PessoaUsuaria", "Cd_Lancamento")
);
CREATE INDEX "Lancamento_1" ON "Lancamento" ("Cd_PessoaUsuaria", "Dt_Emissao");
CREATE UNIQUE INDEX "Lancamento_2" ON "Lancamento" ("Cd_PessoaUsuaria", "No_Tipo");
CREATE UNIQUE INDEX "Lancamento_3" ON "Lancamento" ("Cd_PessoaUsuaria", "De_Historico") WHERE "De_Historico" IS NOT NULL;
CREATE INDEX "Lancamento_4" ON "Lancamento" ("Dt_Emissao") WHERE "Fl_Excluido" = 0;
CREATE UNIQUE INDEX "Lancamento_identity" ON "Lancamento" ("Cd_Lancamento");

CREATE TABLE "Temp" (
  "Nm_Item" varchar(8000) COLLATE Latin1_General_CI_AS NULL
);

