#include "database/postgresql/foundation.h"

namespace ebtq::db {

/// Numbers have 15 digits in a text, as the session is set. Integral ones, the common case, are written as
/// integers, which costs a quarter.
const char *numberFunctionsScript()
{
    return R"sql(
create or replace function ebtq.text(n double precision) returns text language sql immutable parallel safe
return case when n = trunc(n) and pg_catalog.abs(n) < 1e15 then n::bigint::text
    else pg_catalog.replace(n::text, 'e', 'E') end;

create or replace function ebtq.radix_number(digits text, radix integer) returns double precision
language plpgsql immutable strict parallel safe as $$
declare
    result double precision := 0;
    digit integer;
begin
    for at in 1 .. length(digits) loop
        digit := strpos('0123456789abcdef', lower(substr(digits, at, 1) collate "default")) - 1;
        exit when digit < 0 or digit >= radix;
        if result > 1e306 then
            return 1.7976931348623157e308;
        end if;
        result := result * radix + digit;
    end loop;
    return result;
end $$;

create or replace function ebtq.clamped_number(sign text, whole text, fraction text, exponent text)
returns double precision language plpgsql immutable strict parallel safe as $$
declare
    digits text := pg_catalog.ltrim(whole || fraction, '0');
    power numeric := case when length(exponent) > 9 then pg_catalog.left(exponent, 9) else exponent end::numeric;
    scale numeric := power + length(whole) - length(whole || fraction) + length(digits);
    n numeric;
    factor double precision := case when sign = '-' then -1 else 1 end;
begin
    -- The number is 0.digits times ten to the power of scale.
    if digits = '' or scale < -330 then
        return 0;
    end if;
    if scale > 309 then
        return factor * 1.7976931348623157e308;
    end if;
    n := ('0.' || pg_catalog.left(digits, 800) || 'e' || scale)::numeric;
    if n > 1.7976931348623157e308 then
        return factor * 1.7976931348623157e308;
    end if;
    return case when n < 2.48e-324 then 0 else factor * n::double precision end;
end $$;

create or replace function ebtq.val(t text) returns double precision language plpgsql immutable parallel safe as $$
declare
    s text := translate(t, E' \t\n\r', '');
    number text := substring(s from '^[+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[EeDd][+-]?[0-9]+)?');
    parts text[];
begin
    if number is null then
        return case lower(pg_catalog.left(s, 2) collate "default")
            when '&h' then ebtq.radix_number(substr(s, 3), 16)
            when '&o' then ebtq.radix_number(substr(s, 3), 8)
            else 0 end;
    end if;
    if length(number) < 20 and number !~ '[EeDd]' then
        return number::double precision + 0;
    end if;
    parts := regexp_match(number, '^([+-]?)([0-9]*)\.?([0-9]*)(?:[EeDd]([+-]?[0-9]+))?$');
    return ebtq.clamped_number(parts[1], parts[2], parts[3], coalesce(parts[4], '0'));
end $$;

create or replace function ebtq.val(n double precision) returns double precision
language sql immutable parallel safe
return coalesce(n, 0);

create or replace function ebtq.cdbl(n double precision) returns double precision
language sql immutable parallel safe
return n;

create or replace function ebtq.cdbl(t text) returns double precision
language plpgsql immutable strict parallel safe as $$
declare
    s text := btrim(t, E' \t\n\r\f\u000B\u00A0\u3000');
    n double precision := ebtq.val(s);
begin
    if s !~ '^[+-]?([0-9]+\.?[0-9]*|\.[0-9]+)([eE][+-]?[0-9]+)?$'
        or pg_catalog.abs(n) >= 1.7976931348623157e308 then
        raise exception using errcode = 'EB001',
            message = '“' || pg_catalog.left(s, 24) || '”不是数字，不能转换';
    end if;
    return n;
end $$;

create or replace function ebtq.clng(n double precision) returns double precision
language plpgsql immutable strict parallel safe as $$
begin
    if pg_catalog.abs(n) > 9e18 then
        raise exception using errcode = 'EB001', message = '数字太大，不能转换为整数';
    end if;
    return pg_catalog.round(n);
end $$;

create or replace function ebtq.clng(t text) returns double precision language sql immutable parallel safe
return ebtq.clng(ebtq.cdbl(t));

create or replace function ebtq.abs(n double precision) returns double precision
language sql immutable parallel safe
return pg_catalog.abs(n);
create or replace function ebtq.int(n double precision) returns double precision
language sql immutable parallel safe
return floor(n);
create or replace function ebtq.fix(n double precision) returns double precision
language sql immutable parallel safe
return trunc(n);
create or replace function ebtq.sgn(n double precision) returns integer language sql immutable parallel safe
return sign(n)::integer;
create or replace function ebtq.power(n double precision, exponent double precision) returns double precision
language sql immutable parallel safe
return pg_catalog.power(n, exponent);
create or replace function ebtq.round(n double precision) returns double precision
language sql immutable parallel safe
return pg_catalog.round(n);

create or replace function ebtq.round(n double precision, digits double precision) returns double precision
language plpgsql immutable strict parallel safe as $$
declare
    scale double precision;
begin
    if digits < 0 or digits > 15 then
        raise exception using errcode = 'EB001', message = 'round 的小数位数应在 0 到 15 之间';
    end if;
    scale := pg_catalog.power(10::double precision, digits);
    return pg_catalog.round(n * scale) / scale;
end $$;

create or replace function ebtq.sqr(n double precision) returns double precision
language plpgsql immutable strict parallel safe as $$
begin
    if n < 0 then
        raise exception using errcode = 'EB001', message = 'sqr 的参数不能是负数';
    end if;
    return sqrt(n);
end $$;

create or replace function ebtq.intdiv(n double precision, by double precision) returns double precision
language sql immutable parallel safe
return trunc(pg_catalog.round(n) / nullif(pg_catalog.round(by), 0));

create or replace function ebtq.mod(n double precision, by double precision) returns double precision
language sql immutable parallel safe
return case when greatest(pg_catalog.abs(n), pg_catalog.abs(by)) < 9e18
    then pg_catalog.mod(pg_catalog.round(n)::bigint, nullif(pg_catalog.round(by), 0)::bigint)
    else pg_catalog.mod(pg_catalog.round(n)::numeric, nullif(pg_catalog.round(by), 0)::numeric) end::double precision;

create or replace function ebtq.str(n double precision) returns text language sql immutable parallel safe
return case when n < 0 then '' else ' ' end || ebtq.text(n);
)sql";
}

} // namespace ebtq::db
