#include "database/postgresql/foundation.h"

namespace ebtq::db {

/// Texts are folded by the database's default collation: a column's collation orders by code points and folds
/// ASCII only. Functions raise errors in the user's language.
const char *textFunctionsScript()
{
    return R"sql(
create or replace function ebtq.regex_character(c text) returns text language sql immutable strict parallel safe
return case when strpos('\.^$*+?()[]{}|-!"#%&'',/:;<=>@_`~', c) > 0 then '\' || c else c end;

create or replace function ebtq.regex_list(list text) returns text language plpgsql immutable strict parallel safe as $$
declare
    other boolean := length(list) > 1 and pg_catalog.left(list, 1) = '!';
    at integer := case when other then 2 else 1 end;
    first text;
    last text;
    ranges text := '';
begin
    while at <= length(list) loop
        first := substr(list, at, 1);
        last := first;
        if at + 2 <= length(list) and substr(list, at + 1, 1) = '-' then
            last := substr(list, at + 2, 1);
            at := at + 2;
        end if;
        if ascii(first) <= ascii(last) then
            ranges := ranges || ebtq.regex_character(first) || '-' || ebtq.regex_character(last);
        end if;
        at := at + 1;
    end loop;
    if ranges = '' then
        return case when other then '.' else '(?!.*)' end;
    end if;
    return '[' || case when other then '^' else '' end || ranges || ']';
end $$;

create or replace function ebtq.like_regex(pattern text) returns text
language plpgsql immutable strict parallel safe as $$
declare
    folded text := lower(pattern collate "default");
    at integer := 1;
    closing integer;
    c text;
    regex text := '^';
begin
    while at <= length(folded) loop
        c := substr(folded, at, 1);
        closing := case when c = '[' then strpos(substr(folded, at + 1), ']') else 0 end;
        if closing > 0 then
            regex := regex || ebtq.regex_list(substr(folded, at + 1, closing - 1));
            at := at + closing;
        else
            regex := regex || case c when '%' then '.*' when '_' then '.' else ebtq.regex_character(c) end;
        end if;
        at := at + 1;
    end loop;
    return regex || '$';
end $$;

create or replace function ebtq.like(t text, pattern text) returns boolean language sql immutable parallel safe
return case when strpos(pattern, '[') = 0
    then lower(t collate "default") like lower(pattern collate "default") escape ''
    else lower(t collate "default") ~ ebtq.like_regex(pattern) end;

create or replace function ebtq.instr(start double precision, t text, sought text) returns integer
language plpgsql immutable strict parallel safe as $$
declare
    at integer := least(start, 2147483647);
    found integer;
begin
    if start < 1 then
        raise exception using errcode = 'EB001', message = 'instr 的起始位置应从 1 开始';
    end if;
    if at > length(t) then
        return 0;
    end if;
    found := strpos(substr(lower(t collate "default"), at), lower(sought collate "default"));
    return case when found = 0 then 0 else found + at - 1 end;
end $$;

create or replace function ebtq.len(t text) returns integer language sql immutable parallel safe
return length(t);

create or replace function ebtq.left(t text, count double precision) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if count < 0 then
        raise exception using errcode = 'EB001', message = 'left 的长度不能是负数';
    end if;
    return pg_catalog.left(t, least(count, 2147483647)::integer);
end $$;

create or replace function ebtq.right(t text, count double precision) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if count < 0 then
        raise exception using errcode = 'EB001', message = 'right 的长度不能是负数';
    end if;
    return pg_catalog.right(t, least(count, 2147483647)::integer);
end $$;

create or replace function ebtq.mid(t text, start double precision, count double precision) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if start < 1 or count < 0 then
        raise exception using errcode = 'EB001', message = 'mid 的起始位置应从 1 开始，长度不能是负数';
    end if;
    return substr(t, least(start, 2147483647)::integer, least(count, 1073741823)::integer);
end $$;

create or replace function ebtq.mid(t text, start double precision) returns text
language sql immutable parallel safe
return ebtq.mid(t, start, 1073741823);

create or replace function ebtq.trim(t text) returns text language sql immutable parallel safe
return btrim(t, ' ');
create or replace function ebtq.ltrim(t text) returns text language sql immutable parallel safe
return pg_catalog.ltrim(t, ' ');
create or replace function ebtq.rtrim(t text) returns text language sql immutable parallel safe
return pg_catalog.rtrim(t, ' ');
create or replace function ebtq.ucase(t text) returns text language sql immutable parallel safe
return upper(t collate "default");
create or replace function ebtq.lcase(t text) returns text language sql immutable parallel safe
return lower(t collate "default");
create or replace function ebtq.replacetext(t text, sought text, by text) returns text
language sql immutable parallel safe
return pg_catalog.replace(t, sought, by);

create or replace function ebtq.string(count double precision, t text) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if count < 0 or count > 1000000 then
        raise exception using errcode = 'EB001', message = '重复的次数应在 0 到 1000000 之间';
    end if;
    return repeat(pg_catalog.left(t, 1), count::integer);
end $$;

create or replace function ebtq.space(count double precision) returns text language sql immutable parallel safe
return ebtq.string(count, ' ');

create or replace function ebtq.asc(t text) returns integer language plpgsql immutable strict parallel safe as $$
begin
    if t = '' then
        raise exception using errcode = 'EB001', message = 'asc 的参数不能是空文本';
    end if;
    return ascii(t);
end $$;

create or replace function ebtq.chr(code double precision) returns text
language plpgsql immutable strict parallel safe as $$
begin
    if code < 1 or code > 1114111 or code between 55296 and 57343 then
        raise exception using errcode = 'EB001', message = 'chr 的参数不是字符的代码';
    end if;
    return pg_catalog.chr(code::integer);
end $$;
)sql";
}

} // namespace ebtq::db
