-- Criação das tabelas do curso; não executar em produção
CREATE TABLE aluno (
  matricula NUMBER(8) NOT NULL, -- número de matrícula
  nome VARCHAR2(80), /* não é único; há homônimos */
  situação CHAR(1) DEFAULT 'á',
  CONSTRAINT aluno_pk PRIMARY KEY (matricula)
);
COMMENT ON TABLE aluno IS 'Alunos; inclui os já formados (histórico d''água)';
PROMPT Inserindo os dados dos alunos...
INSERT INTO aluno VALUES (1, 'João Conceição', 'A');
CREATE OR REPLACE PROCEDURE "RELATÓRIO" IS
BEGIN
  dbms_output.put_line('Relatório concluído às ' || TO_CHAR(SYSDATE, 'HH24"h"MI'));
END;
/
CREATE SEQUENCE aluno_seq;
COMMIT;
