#include "posto/engines/postgres/functions.h"

#include "posto/schema/table.h"
#include "posto/tsql/postgres_ddl.h"

namespace posto::postgres {

const std::string_view kCreateFunctions = R"sql(
CREATE SCHEMA posto;
SET LOCAL search_path = posto;

-- Blind to case, not to accents; blanks behind a text are left to the type bpchar.
CREATE COLLATION posto (provider = icu, locale = 'und-u-ks-level2', deterministic = false);

CREATE FUNCTION posto_refuse(state text, message text) RETURNS void LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN RAISE EXCEPTION USING ERRCODE = state, MESSAGE = message; END $$;

-- A generated number that an INSERT gave: the numbering goes on behind it.
CREATE FUNCTION posto_given(relation text, field text, number integer) RETURNS integer LANGUAGE plpgsql AS $$
DECLARE sequence text := pg_get_serial_sequence(relation, field); latest bigint;
BEGIN
  EXECUTE format('SELECT last_value FROM %s', sequence) INTO latest;
  IF number >= latest THEN PERFORM setval(sequence, number); END IF;
  RETURN number;
END $$;

-- Arithmetic.

CREATE FUNCTION posto_divide_int(a bigint, b bigint) RETURNS bigint IMMUTABLE STRICT LANGUAGE sql AS 'SELECT a / b';
CREATE FUNCTION posto_divide_money(a numeric, b numeric) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT div(a * 10000, b) * 0.0001';
CREATE FUNCTION posto_part_of_money(a numeric, b bigint) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT div(a * 10000, b::numeric) * 0.0001';
CREATE FUNCTION posto_divide_real(a float8, b float8) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS 'SELECT a / b';
CREATE FUNCTION posto_multiply_money(a numeric, b numeric) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT round(a * b, 4)';
-- Decimals with more places than money has, carried in the float nearest to them.
CREATE FUNCTION posto_multiply_decimal(a float8, b float8) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT (a::numeric * b::numeric)::float8';
CREATE FUNCTION posto_round_decimal(x float8, decimals integer) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT round(x::numeric, greatest(least(decimals, 15), -15))::float8';

-- Halves away from zero; from 2^52 on a float has no fraction.
CREATE FUNCTION posto_nearest(x float8) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT trunc(x) + CASE WHEN abs(x - trunc(x)) >= 0.5 THEN sign(x) ELSE 0 END';
CREATE FUNCTION posto_round_real(x float8, decimals integer) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS $$
  SELECT CASE WHEN decimals < 0 THEN posto_nearest(x / power(10::float8, least(-decimals, 15)))
                                     * power(10::float8, least(-decimals, 15))
              WHEN abs(x) >= 4503599627370496 THEN x
              ELSE posto_nearest(x * power(10::float8, least(decimals, 15))) / power(10::float8, least(decimals, 15)) END
$$;
CREATE FUNCTION posto_round_money(x numeric, decimals integer) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT round(x, greatest(least(decimals, 4), -15))';
CREATE FUNCTION posto_round_int(x bigint, decimals integer) RETURNS bigint IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT round(x::numeric, greatest(least(decimals, 0), -15))::bigint';

-- Conversions.

CREATE FUNCTION posto_real32(x float8) RETURNS real IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT CASE WHEN abs(x) < 1e-37 THEN 0 ELSE x::real END';
CREATE FUNCTION posto_money_int(x numeric) RETURNS bigint IMMUTABLE STRICT LANGUAGE sql AS 'SELECT round(x)::bigint';
CREATE FUNCTION posto_real_int(x float8) RETURNS integer IMMUTABLE STRICT LANGUAGE sql AS 'SELECT trunc(x)::integer';
CREATE FUNCTION posto_real_money(x float8) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT posto_nearest(x * 10000)::bigint * 0.0001';
CREATE FUNCTION posto_int_date(days bigint) RETURNS timestamp IMMUTABLE STRICT LANGUAGE plpgsql AS $$
BEGIN
  IF days NOT BETWEEN -53690 AND 2958463 THEN PERFORM posto_refuse('PO157', 'Estouro aritmético'); END IF;
  RETURN timestamp '1900-01-01' + days * interval '1 day';
END $$;
-- kind: 1 of a byte, 2 of 16 bits, 3 of 32 bits.
CREATE FUNCTION posto_fit(x numeric, kind integer) RETURNS bigint IMMUTABLE STRICT LANGUAGE plpgsql AS $$
BEGIN
  IF (CASE kind WHEN 1 THEN x NOT BETWEEN 0 AND 255 WHEN 2 THEN x NOT BETWEEN -32768 AND 32767
                ELSE x NOT BETWEEN -2147483648 AND 2147483647 END) THEN
    PERFORM posto_refuse('PO157', format('Estouro aritmético: o valor %s não cabe no tipo pedido', x));
  END IF;
  RETURN x;
END $$;

CREATE FUNCTION posto_text_number(x text, form text, what text) RETURNS numeric IMMUTABLE STRICT LANGUAGE plpgsql AS $$
DECLARE digits text COLLATE "C" := btrim(x);
BEGIN
  IF digits = '' THEN RETURN 0; END IF;
  IF digits !~ form COLLATE "C" THEN PERFORM posto_refuse('PO107', format('O texto ''%s'' não é %s', left(x, 200), what)); END IF;
  RETURN digits::numeric;
END $$;
CREATE FUNCTION posto_text_int(x text) RETURNS integer IMMUTABLE STRICT LANGUAGE sql AS
  $$ SELECT posto_text_number(x, '^[+-]?[0-9]+$', 'um número inteiro')::integer $$;
CREATE FUNCTION posto_text_bit(x text) RETURNS integer IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT (posto_text_int(x) <> 0)::integer';
CREATE FUNCTION posto_text_money(x text) RETURNS numeric IMMUTABLE STRICT LANGUAGE sql AS
  $$ SELECT round(posto_text_number(x, '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)$', 'um valor'), 4) $$;
CREATE FUNCTION posto_text_real(x text) RETURNS float8 IMMUTABLE STRICT LANGUAGE sql AS
  $$ SELECT posto_text_number(x, '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)(e[+-]?[0-9]+)?$', 'um número')::float8 $$;
CREATE FUNCTION posto_text_real32(x text) RETURNS real IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT posto_real32(posto_text_real(x))';

-- Moments as text: a day in the session's order or run together, a time of day, or both.
CREATE FUNCTION posto_full_year(digits text) RETURNS integer IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT digits::integer + CASE WHEN length(digits) > 2 THEN 0 WHEN digits::integer < 50 THEN 2000 ELSE 1900 END';
CREATE FUNCTION posto_text_day(x text) RETURNS date STABLE STRICT LANGUAGE plpgsql AS $$
DECLARE form text COLLATE "C" := coalesce(nullif(current_setting('posto.date_order', true), ''), 'ymd'); p text[];
BEGIN
  IF x COLLATE "C" ~ '^([0-9]{6}|[0-9]{8})$' THEN
    p := ARRAY[left(x, -4), left(right(x, 4), 2), right(x, 2)];
    form := 'ymd';
  ELSE
    p := regexp_match(x COLLATE "C", '^([0-9]{1,4})[-/.]([0-9]{1,4})[-/.]([0-9]{1,4})$');
    IF p IS NULL THEN RETURN NULL; END IF;
    IF length(p[1]) = 4 THEN form := 'y' || replace(form, 'y', ''); END IF;
    IF length(p[3]) = 4 THEN form := replace(form, 'y', '') || 'y'; END IF;
  END IF;
  IF length(p[strpos(form, 'm')]) > 2 OR length(p[strpos(form, 'd')]) > 2 THEN RETURN NULL; END IF;
  RETURN make_date(posto_full_year(p[strpos(form, 'y')]), p[strpos(form, 'm')]::integer, p[strpos(form, 'd')]::integer);
EXCEPTION WHEN datetime_field_overflow THEN RETURN NULL;
END $$;
CREATE FUNCTION posto_text_time(x text) RETURNS interval IMMUTABLE STRICT LANGUAGE plpgsql AS $$
DECLARE p text[] := regexp_match(x COLLATE "C", '^([0-9]{1,2}):([0-9]{1,2})(?::([0-9]{1,2})(?:[.:]([0-9]{1,3}))?)? *(AM|PM)?$', 'i');
        hour integer := p[1]::integer;
BEGIN
  IF p IS NULL THEN RETURN NULL; END IF;
  IF p[5] IS NOT NULL THEN
    IF hour NOT BETWEEN 1 AND 12 THEN RETURN NULL; END IF;
    hour := hour % 12 + CASE upper(p[5]) WHEN 'PM' THEN 12 ELSE 0 END;
  END IF;
  RETURN make_time(hour, p[2]::integer, (coalesce(p[3], '0') || '.' || coalesce(p[4], '0'))::float8)::interval;
EXCEPTION WHEN datetime_field_overflow THEN RETURN NULL;
END $$;
CREATE FUNCTION posto_text_date(x text) RETURNS timestamp STABLE STRICT LANGUAGE plpgsql AS $$
DECLARE
  trimmed text COLLATE "C" := btrim(x);
  p text[] := regexp_match(trimmed, '^([0-9./-]*)(?:[ T] *)?([0-9]{1,2}:.*)?$', 'i');
  moment timestamp;
BEGIN
  IF trimmed = '' THEN RETURN timestamp '1900-01-01'; END IF;
  IF trimmed ~ '^[0-9]{1,2}:' THEN p := ARRAY['', trimmed]; END IF;
  moment := coalesce(posto_text_day(nullif(p[1], '')), CASE WHEN p[1] = '' THEN date '1900-01-01' END)
            + CASE WHEN p[2] IS NULL THEN interval '0' ELSE posto_text_time(p[2]) END;
  IF moment IS NULL OR moment < timestamp '1753-01-01' THEN
    PERFORM posto_refuse('PO107', format('O texto ''%s'' não é uma data', left(x, 200)));
  END IF;
  RETURN moment;
END $$;

-- Texts.

-- A column with the blanks at its end, which a cast to text takes off.
CREATE FUNCTION posto_whole(x bpchar) RETURNS text IMMUTABLE STRICT LANGUAGE sql AS 'SELECT textin(bpcharout(x))';

CREATE FUNCTION posto_text(x text, width integer, padded boolean, style integer) RETURNS text IMMUTABLE STRICT
LANGUAGE sql AS
  'SELECT CASE WHEN width = 0 THEN x WHEN padded THEN rpad(x, width) ELSE left(x, width) END';
CREATE FUNCTION posto_text(x bigint, width integer, padded boolean, style integer) RETURNS text IMMUTABLE STRICT
LANGUAGE sql AS
  $$ SELECT posto_text(CASE WHEN width > 0 AND length(x::text) > width THEN '*' ELSE x::text END, width, padded, -1) $$;
CREATE FUNCTION posto_number_text(x text, width integer, padded boolean) RETURNS text IMMUTABLE STRICT
LANGUAGE plpgsql AS $$
BEGIN
  IF width > 0 AND length(x) > width THEN
    PERFORM posto_refuse('PO157', format('O número %s não cabe em %s caracteres', x, width));
  END IF;
  RETURN posto_text(x, width, padded, -1);
END $$;
CREATE FUNCTION posto_style(style integer) RETURNS text IMMUTABLE STRICT LANGUAGE plpgsql AS $$
BEGIN PERFORM posto_refuse('PO114', 'Estilo de conversão desconhecido: ' || style); RETURN NULL; END $$;
CREATE FUNCTION posto_text(x numeric, width integer, padded boolean, style integer) RETURNS text IMMUTABLE STRICT
LANGUAGE sql AS $$
  SELECT posto_number_text(CASE style WHEN -1 THEN round(x, 2)::text WHEN 0 THEN round(x, 2)::text
                                      WHEN 1 THEN to_char(round(x, 2), 'FM999,999,999,999,999,990.00')
                                      WHEN 2 THEN round(x, 4)::text ELSE posto_style(style) END, width, padded)
$$;
-- Six significant digits; from a million and below a ten-thousandth on with an exponent of three digits.
CREATE FUNCTION posto_text(x float8, width integer, padded boolean, style integer) RETURNS text IMMUTABLE STRICT
LANGUAGE plpgsql AS $$
DECLARE exponent integer := 0; figure numeric := x::numeric; shown text;
BEGIN
  IF figure <> 0 THEN
    exponent := floor(log(abs(figure)));
    figure := round(figure, 5 - exponent);
    IF abs(figure) >= power(10::numeric, exponent + 1) THEN exponent := exponent + 1; END IF;
  END IF;
  IF exponent BETWEEN -4 AND 5 THEN
    shown := trim_scale(figure)::text;
  ELSE
    shown := trim_scale(figure * power(10::numeric, -exponent))::text || CASE WHEN exponent < 0 THEN 'e-' ELSE 'e+' END
             || lpad(abs(exponent)::text, 3, '0');
  END IF;
  RETURN posto_number_text(shown, width, padded);
END $$;
CREATE FUNCTION posto_text(x timestamp, width integer, padded boolean, style integer) RETURNS text IMMUTABLE STRICT
LANGUAGE sql AS $$
  SELECT posto_text(CASE WHEN style IN (-1, 0, 100) THEN
           to_char(x, 'Mon') || ' ' || lpad(to_char(x, 'FMDD'), 2) || ' ' || to_char(x, 'FMYYYY') || ' '
           || lpad(to_char(x, 'FMHH12'), 2) || to_char(x, ':MIAM')
         ELSE to_char(x, CASE style
           WHEN 101 THEN 'MM/DD/YYYY' WHEN 102 THEN 'YYYY.MM.DD' WHEN 103 THEN 'DD/MM/YYYY' WHEN 104 THEN 'DD.MM.YYYY'
           WHEN 105 THEN 'DD-MM-YYYY' WHEN 108 THEN 'HH24:MI:SS' WHEN 110 THEN 'MM-DD-YYYY' WHEN 111 THEN 'YYYY/MM/DD'
           WHEN 112 THEN 'YYYYMMDD' WHEN 120 THEN 'YYYY-MM-DD HH24:MI:SS' WHEN 121 THEN 'YYYY-MM-DD HH24:MI:SS.MS'
           ELSE posto_style(style) END) END, width, padded, -1)
$$;

CREATE FUNCTION posto_substring(x text, start bigint, count bigint) RETURNS text IMMUTABLE STRICT LANGUAGE plpgsql AS $$
DECLARE first bigint := greatest(start, 1); behind numeric := start::numeric + count;
BEGIN
  IF count < 0 THEN PERFORM posto_refuse('PO114', 'Substring com tamanho negativo'); END IF;
  IF behind <= first OR first > length(x) THEN RETURN ''; END IF;
  RETURN substr(x, first::integer, least(behind - first, length(x))::integer);
END $$;

-- A set of Like as one of regular expressions. A range holds what lies between its ends in the order of texts.
CREATE FUNCTION posto_like_set(members text) RETURNS text IMMUTABLE STRICT LANGUAGE plpgsql AS $$
DECLARE form text COLLATE "C" := '['; rest text COLLATE "C" := members; wide text COLLATE "C";
BEGIN
  IF left(rest, 1) = '^' THEN form := '[^'; rest := substr(rest, 2); END IF;
  WHILE rest <> '' LOOP
    wide := left(rest, 1);
    IF substr(rest, 2, 1) = '-' AND length(rest) > 2 THEN
      SELECT string_agg(chr(code), '') INTO wide FROM generate_series(32, 383) code
       WHERE chr(code) COLLATE posto BETWEEN left(rest, 1) AND substr(rest, 3, 1);
      rest := substr(rest, 3);
    END IF;
    form := form || regexp_replace(coalesce(wide, ''), '[]\\[^-]', '\\\&', 'g');
    rest := substr(rest, 2);
  END LOOP;
  RETURN form || ']';
END $$;
-- Like as a regular expression: %, _ and sets; null where a set is empty or has no end, which nothing is like.
CREATE FUNCTION posto_like_form(pattern text) RETURNS text IMMUTABLE STRICT LANGUAGE plpgsql AS $$
DECLARE form text COLLATE "C" := '^'; rest text COLLATE "C" := pattern; c text COLLATE "C"; closing integer;
BEGIN
  WHILE rest <> '' LOOP
    c := left(rest, 1);
    rest := substr(rest, 2);
    closing := strpos(rest, ']');
    IF c = '%' THEN form := form || '.*';
    ELSIF c = '_' THEN form := form || '.';
    ELSIF c = '[' AND closing < 2 THEN RETURN NULL;
    ELSIF c = '[' THEN
      form := form || posto_like_set(left(rest, closing - 1));
      rest := substr(rest, closing + 1);
    ELSE form := form || regexp_replace(c, '[^[:alnum:]]', '\\\&');
    END IF;
  END LOOP;
  RETURN form || '$';
END $$;
-- What begins as a pattern does lies between these.
CREATE FUNCTION posto_like_from(pattern text) RETURNS text IMMUTABLE STRICT LANGUAGE sql AS
  $$ SELECT substring(pattern COLLATE "C" from '^[^%_[]*') $$;
CREATE FUNCTION posto_like_to(pattern text) RETURNS text IMMUTABLE STRICT LANGUAGE sql AS
  $$ SELECT posto_like_from(pattern) || U&'\FFFF' $$;
CREATE FUNCTION posto_like(x text, pattern text) RETURNS boolean IMMUTABLE STRICT LANGUAGE sql AS
  'SELECT x COLLATE "und-x-icu" ~* coalesce(posto_like_form(pattern), ''x$y'')';
)sql";

namespace {

// A partition is made whole, with keys and checks, and attached.
constexpr std::string_view kPartitionsOfACompany = R"sql(
CREATE SCHEMA empresas;
CREATE PROCEDURE posto.empresa(company integer) LANGUAGE plpgsql AS $$
DECLARE
  place text := 'empresa_' || company;
  name text;
BEGIN
  EXECUTE format('CREATE SCHEMA %I', place);
  FOR name IN SELECT relname FROM pg_class WHERE relkind = 'p' AND relnamespace = 'public'::regnamespace LOOP
    EXECUTE format('CREATE TABLE %I.%I (LIKE empresas.%I INCLUDING ALL)', place, name, name);
    EXECUTE format('ALTER TABLE public.%I ATTACH PARTITION %I.%I FOR VALUES IN (%s)', name, place, name, company);
  END LOOP;
END $$;
)sql";

}  // namespace

std::string creating_script(bool partitioned) {
  std::string script = "BEGIN;";
  script += kCreateFunctions;
  if (partitioned) script += kPartitionsOfACompany;
  script += "SET LOCAL search_path = public, posto;\n";
  for (const Table& table : all_tables()) {
    if (partitioned && tsql::grows_by_company(table)) {
      for (const std::string& statement : tsql::postgres_create_partitioned(table)) script += statement + ";\n";
      continue;
    }
    script += tsql::postgres_create_table(table) + ";\n";
    for (const std::string& index : tsql::postgres_create_indexes(table)) script += index + ";\n";
  }
  return script + "COMMIT;";
}

}  // namespace posto::postgres
