-- It's a "remark
/* nested /* here */ don't */
create or replace function walk(n integer) returns text as $body$
declare t text := 'it''s';
begin
  raise notice E'don\'t % -- x', n; -- the end
  return format('%s', t);
end;
$body$ language plpgsql;
select "a ""b" from t where x = $1 and y = 'two
lines';
\echo isn't a string
